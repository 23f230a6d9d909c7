#pragma once

#include <vetra/color.h>

#include <QString>

namespace TovaView {

/// A colour as DOT writes it: X11 name, "#rrggbb", "#rrggbbaa" or "hue,saturation,value". Of a list
/// of colours it is the first; black when it cannot be read.
Vetra::Color colorOf(const QString& text);

} // namespace TovaView
