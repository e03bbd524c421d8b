#pragma once

#include <QString>

namespace Veilshot {

/// Whether the text is a label of details that nothing but their label tells from other words and numbers:
/// dates of birth, passwords, numbers of documents and of branches of banks.
bool isLabelOfDetail(const QString& text);

/// Whether the text is a label of parts of people's names: "Efternavn".
bool isLabelOfName(const QString& text);

/// Whether the text is one of these or another label of people: "Assignee". Not "Name", which files, products
/// and machines have too.
bool isLabelOfPerson(const QString& text);

} // namespace Veilshot
