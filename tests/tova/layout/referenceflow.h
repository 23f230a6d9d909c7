#pragma once

#include "tova/tova.h"

#include <optional>
#include <vector>

namespace Tova2::LayoutTest {

using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;
using Size = Vetra::Size<double>;
using ExpandMode = AutoLayoutPanel::ExpandMode;
using PanelStyle = AutoLayoutPanel::PanelStyle;

struct Rules {
    ExpandMode mode = ExpandMode::None;
    HorizontalAlignment h = HorizontalAlignment::Left;
    VerticalAlignment v = VerticalAlignment::Top;
    Size size{};
    double padding = 1;
    double scale = 1;
};

/// The top left corner of each box, or nothing where it is hidden: the rules as one plain loop.
std::vector<std::optional<Point>> referenceFlow(const Rules& rules, const std::vector<Size>& boxes);

void apply(const Rules& rules, AutoLayoutPanel& panel);
/// A rectangle without stroke, at the origin.
RectNode boxNode(const Size& size);
/// What the panel shows, as `referenceFlow` says it.
std::vector<std::optional<Point>> shownIn(const AutoLayoutPanel& panel);

/// Gives a fixed scale, and counts how often it was asked: once a layout.
struct CountingScale : LodScale {
    explicit CountingScale(double given = 1) : value(given) {}
    double scale(double) const override
    {
        ++asked;
        return value;
    }
    double value;
    mutable int asked = 0;
};

} // namespace Tova2::LayoutTest
