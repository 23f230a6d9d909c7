#pragma once

#include "tova/nodes/geometry/limits.h"

#include <QSizeF>

namespace Tova2 {

/// Whether the library makes a picture of so many pixels. False as well for what is not a number.
inline bool isRenderable(const QSizeF& size)
{
    return size.width() >= 0 && size.width() <= Limits::offScreenSide && size.height() >= 0 &&
           size.height() <= Limits::offScreenSide &&
           size.width() * size.height() * 4 <= static_cast<double>(Limits::offScreenBytes);
}

} // namespace Tova2
