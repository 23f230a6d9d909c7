#pragma once

#include "imagesource.h"

#include <QByteArray>

#include <memory>
#include <string>

namespace Vetra {

/// Keeps a drawing that `requireSafeSvg` has let through in vector form. Throws Damaged, Empty or
/// TooLarge.
std::unique_ptr<const ImageSource> makeSvgSource(const QByteArray& bytes, const std::string& name);

} // namespace Vetra
