#pragma once

#include <QByteArray>

#include <string>

namespace Vetra {

/// Whether the first bytes are XML text, which is all that is asked before the filter reads the
/// whole.
bool looksLikeSvg(const QByteArray& bytes);

/// Reads a drawing before the toolkit does and refuses what would run, reach out or explode: a
/// document type with declarations, processing instructions, scripts, foreign objects, fonts,
/// references to anything but `#id` and embedded PNG or JPEG pictures, and more than `ImageLimits`
/// allows once every `use` is expanded. Throws Damaged, TooLarge, UnsafeDrawing, TooComplex or
/// UnknownFormat.
void requireSafeSvg(const QByteArray& bytes, const std::string& name);

} // namespace Vetra
