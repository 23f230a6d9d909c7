#pragma once

#include "diagram.h"

namespace TovaView {

/// A line of a label, and the side of the box that it keeps to.
struct LabelLine {
    QString text;
    Align align = Align::Center;
};

/// The lines of a plain label: "\n", "\l" and "\r" end them, entities such as "&amp;" are resolved.
std::vector<LabelLine> labelLines(const QString& label);
/// The lines of an HTML-like label without its markup.
std::vector<LabelLine> markupLines(const QString& label);

constexpr int longestLabel = 1 << 20;
constexpr double lineHeight = 1.2; ///< of the font's size

struct TextStyle {
    QString family = QStringLiteral("Times");
    double size = 14;
    Vetra::Color color;
};

/// Puts the lines one under the other in the middle of `box`, smaller when they are too high for
/// it.
std::vector<TextPiece> placeLines(const std::vector<LabelLine>& lines, const Rect& box,
                                  const TextStyle& style);

} // namespace TovaView
