#pragma once

#include <tova/tova.h>

#include <string>
#include <vector>

/// What the palette offers: the kinds of figures of a flow chart.
const std::vector<std::string>& shapeKinds();
/// Of a kind that there is, inside the box.
Vetra::Shape shapeOf(const std::string& kind, const Vetra::GLRect<double>& box);
Tova2::DrawStyle smooth(const Tova2::Stroke& stroke, const Tova2::Fill& fill);
Tova2::Stroke line(double width, const Vetra::Color& color);
/// A figure for the diagram, around the point.
Tova2::Node makeFigure(const std::string& kind, const Vetra::GLPoint<double>& middle,
                       const std::string& words);
