#pragma once

#include <QByteArray>
#include <QString>

/// The process's standard streams. Each function may be called from any thread.
namespace Veilshot::StandardStreams {

/// Everything up to the end of standard input, but no more than one byte beyond `limit`.
QByteArray readInput(qint64 limit);

/// Whether all of it could be written.
bool writeOutput(const QByteArray& bytes);

void writeError(const QString& text);
/// The text with blanks for line breaks and escapes: the name of a file may hold any of them.
QString printable(QString text);

/// "veilshot: ", the text in one line and a line break.
void writeErrorLine(const QString& text);

/// Whether a person is likely to watch standard error.
bool isErrorTerminal();

} // namespace Veilshot::StandardStreams
