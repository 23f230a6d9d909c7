#pragma once

#include "vetra/imageloader.h"

#include <QByteArray>

namespace Vetra {

/// The file a policy lets `path` mean, links resolved. Throws NotFound or OutsideRoot.
std::string resolveImagePath(const std::string& path, const ImagePolicy& policy);

/// The whole of a regular file of at most `ImageLimits::MaxFileBytes`, without ever waiting.
QByteArray readBounded(const std::string& resolvedPath);

} // namespace Vetra
