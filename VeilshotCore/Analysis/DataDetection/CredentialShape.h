#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>

/// How the letters and digits of credentials follow each other, and how far one goes on in a line in which
/// some were misread. All ranges are those of the line and stay within it.
namespace Veilshot::CredentialShape {

struct Composition {
    int upper = 0;
    int lower = 0;
    int digits = 0;
    /// How often a letter stands beside a digit.
    int changes = 0;

    explicit Composition(QStringView text);
};

/// Whether somebody could have set this as a password, rather than "required" or "never". Not empty.
bool isChosen(QStringView text);

/// Whether nobody thought of this run of letters and digits: they alternate, which neither names of files nor
/// versions nor paths do for long.
bool isRandom(QStringView text);

/// How often a capital follows a small letter, or a letter a digit or the other way round.
int breaks(QStringView text);

/// A credential in which a sign was misread or a blank was made up goes on behind it, as long as what comes
/// looks as if nobody had thought of it either. In front of it only a sign belongs to it.
TextRange grown(QStringView line, TextRange credential);

/// A signed token is long and has every sign there is: it goes on over blanks and all signs, past a stray one
/// or two.
TextRange grownSignedToken(QStringView line, TextRange token);

} // namespace Veilshot::CredentialShape
