#pragma once

#include <vetra/color.h>

#include <QString>

#include <optional>

namespace TovaView {

/// A colour as DOT writes it: X11 name, "#rrggbb", "#rrggbbaa" or "hue,saturation,value". Of a list
/// of colours it is the first; nothing when it cannot be read.
std::optional<Vetra::Color> findColor(const QString& text);
/// Black when it cannot be read.
Vetra::Color colorOf(const QString& text);

} // namespace TovaView
