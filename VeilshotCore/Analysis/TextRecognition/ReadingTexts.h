#pragma once

#include <QString>

namespace Veilshot {

/// Whether the text is one of the few words of which a name consists.
bool mayBeName(const QString& text);

/// Whether it has a house number and a word, and is no mail address and no label.
bool mayBeStreet(const QString& text);

/// Whether it is a town with its postcode, on either side.
bool isPlace(const QString& text);

bool isTown(const QString& text);

bool isBarePostcode(const QString& text);

/// Whether a label stands in it, which would give all of it away that is read on with it.
bool hasLabel(const QString& text);

/// Whether the cell goes on in the one below it: an address with its floor or postcode, a number with its
/// last digits.
bool goesOnInCell(const QString& upper, const QString& lower);

/// Whether a short text goes on in the next row as longer ones do: an address behind its comma, the four
/// pairs of a telephone number.
bool goesOnInText(const QString& upper, const QString& lower);

/// Whether a mail or web address is torn by the end of the row, behind one of its signs, or a key behind its
/// hyphen.
bool isTornToken(const QString& upper, const QString& lower);

/// Whether it is a row of a secret of words, which goes on in the next.
bool isRowOfWords(const QString& text);

} // namespace Veilshot
