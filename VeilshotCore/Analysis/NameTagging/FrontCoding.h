#pragma once

#include <QByteArray>

namespace Veilshot {

/// The lines of NameLexicon.txt in full, "key flags" each and in the same order. There a line says in its
/// first character how many letters it shares with the one before (0 to 9, then A to Z), and one without
/// flags is a weak last name. A line that cannot be understood is left out.
QByteArray frontDecoded(const QByteArray& coded);

} // namespace Veilshot
