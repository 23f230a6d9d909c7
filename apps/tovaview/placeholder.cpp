#include "placeholder.h"

#include <algorithm>

namespace TovaView {
namespace {

constexpr double margin = 4, textSize = 8; ///< points
constexpr double largestSign = 40;         ///< points
constexpr double heightOfSign = 0.75;      ///< of its width

FillStyle filled(quint32 color)
{
    return {Vetra::Color::fromPacked(color), {}};
}

LineStyle line(quint32 color, Dash dash = Dash::Solid)
{
    return {Vetra::Color::fromPacked(color), 1, dash};
}

Points cornersOf(const Rect& rect)
{
    return {rect.topLeft(),
            {rect.right(), rect.y},
            {rect.right(), rect.bottom()},
            {rect.x, rect.bottom()}};
}

/// A frame with a sun over two hills.
void addSign(const Rect& box, std::vector<Figure>& figures)
{
    const auto at = [&](double x, double y) {
        return Point{box.x + x * box.width, box.y + y * box.height};
    };
    figures.push_back({Outline::Polygon, cornersOf(box), filled(0xffffffff), line(0xff8a93a0)});
    figures.push_back({Outline::Ellipse, {at(0.16, 0.16), at(0.34, 0.4)}, filled(0xffe8b84a), {}});
    figures.push_back(
        {Outline::Polygon,
         {at(0.06, 0.9), at(0.38, 0.45), at(0.6, 0.75), at(0.74, 0.58), at(0.94, 0.9)},
         filled(0xff9fb4c8),
         {}});
}

} // namespace

void addPlaceholder(const QString& name, Block& block)
{
    const Rect& frame = block.frame;
    Drawing& drawing = block.drawing;
    const bool isBare = drawing.figures.empty(), isNamed = drawing.texts.empty();
    if (isBare)
        drawing.figures.push_back({Outline::Polygon, cornersOf(frame), filled(0xfff3f5f7),
                                   line(0xffb4bcc6, Dash::Dashed)});
    // Beside a text there is no telling where the picture would have been.
    if (!isNamed)
        return;
    const double room = frame.height - 2 * margin - textSize * 1.4;
    const double width = std::min({largestSign, frame.width - 2 * margin, room / heightOfSign});
    const double height = width * heightOfSign;
    if (width < margin)
        return;
    const double top = frame.y + margin + (room - height) / 2;
    addSign({frame.center().x - width / 2, top, width, height}, drawing.figures);
    TextPiece text;
    text.text = name.section(QLatin1Char('/'), -1);
    text.anchor = {frame.center().x, frame.bottom() - margin};
    text.width = std::max(1.0, frame.width - 2 * margin);
    text.family = QStringLiteral("DejaVu Sans");
    text.size = textSize;
    text.color = Vetra::Color::fromPacked(0xff5a6470);
    drawing.texts.push_back(text);
}

} // namespace TovaView
