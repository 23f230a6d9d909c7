#pragma once

#include <QByteArray>
#include <QImage>

#include <string>

namespace Vetra {

/// The toolkit's name for the format the first bytes tell; null for none of those we allow.
const char* rasterFormat(const QByteArray& bytes);

/// As the header tells, before any pixel is decoded. Throws Damaged, TooLarge or UnknownFormat.
QSize requireAcceptableHeader(const QByteArray& bytes, const char* format, const std::string& name);

QImage decodeRaster(const QByteArray& bytes, const char* format, const std::string& name);

} // namespace Vetra
