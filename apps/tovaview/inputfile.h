#pragma once

#include <QByteArray>
#include <QString>

namespace TovaView {

/// The whole text of a regular file as UTF-8: a byte order mark is dropped, and bytes that are not
/// UTF-8 are taken as Latin-1. Throws FileError when it is missing, unreadable, empty, binary, not
/// a regular file or above 64 MiB.
QByteArray readText(const QString& path);

/// `bytes` as they are when they are UTF-8, else converted from Latin-1.
QByteArray toUtf8(const QByteArray& bytes);

} // namespace TovaView
