#pragma once

#include <QFile>
#include <QUrl>
#include <gmock/gmock.h>

/// Whole files, read and written at once.
namespace Veilshot::FileContents {

/// Nothing if it cannot be read.
inline QByteArray read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Returns the path.
inline QString write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << path.toStdString();
    return path;
}

} // namespace Veilshot::FileContents
