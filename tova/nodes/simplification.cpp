#include "nodes/simplification.h"

namespace Tova2 {

namespace {

/// How the toolkit's patterns repeat, in widths of the line.
struct Rhythm {
    double period, drawn;
    int dashes;

    static const Rhythm& of(StrokeStyle style)
    {
        static constexpr Rhythm rhythms[] = {{6, 4, 1}, {3, 1, 1}, {9, 5, 2}, {12, 6, 3}};
        return rhythms[static_cast<int>(style) - static_cast<int>(StrokeStyle::DashLine)];
    }
    /// Caps reach half a width into the gaps at either end.
    double share(bool hasCaps) const { return (drawn + (hasCaps ? dashes : 0)) / period; }
};

Vetra::Color meanOf(const Vetra::Gradient& gradient)
{
    const auto& stops = gradient.stops();
    Vetra::Color mean = stops.front().color;
    double covered = stops.front().offset;
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const double length = stops[i].offset - stops[i - 1].offset;
        covered += length;
        if (covered > 0)
            mean = mixed(mean, mixed(stops[i - 1].color, stops[i].color, 0.5), length / covered);
    }
    return mixed(mean, stops.back().color, 1 - stops.back().offset);
}

} // namespace

const Simplification& Simplification::of(std::uint8_t quality)
{
    static constexpr Simplification coarsest{6, 8, 1, 3, false}, middle{3, 4, 0.5, 1, true}, none;
    return quality == 0 ? coarsest : quality == 1 ? middle : none;
}

Stroke Simplification::stroke(const Stroke& stroke, double pixels) const
{
    if (stroke.style() <= StrokeStyle::SolidLine || stroke.style() > StrokeStyle::DashDotDotLine)
        return stroke;
    const Rhythm& rhythm = Rhythm::of(stroke.style());
    if (!(rhythm.period * pixels < dashes))
        return stroke;
    Stroke solid = stroke;
    solid.setStyle(StrokeStyle::SolidLine);
    solid.setColor(
        faded(stroke.color(), rhythm.share(stroke.capStyle() != StrokeCapStyle::FlatCap)));
    return solid;
}

Fill Simplification::fill(const Fill& fill, double pixels) const
{
    const bool isPlain = fill.style() != FillStyle::Gradient || fill.gradient().isEmpty();
    return isPlain || !(pixels < gradients) ? fill : Fill(meanOf(fill.gradient()));
}

Vetra::Color mixed(const Vetra::Color& a, const Vetra::Color& b, double share)
{
    // Opaque parts weigh more.
    const double ofA = a.alpha() * (1 - share), ofB = b.alpha() * share, alpha = ofA + ofB;
    if (!(alpha > 0))
        return Vetra::Color(0, 0, 0, 0);
    const auto channel = [&](int x, int y) { return (x * ofA + y * ofB) / alpha / 255; };
    return Vetra::Color(channel(a.red(), b.red()), channel(a.green(), b.green()),
                        channel(a.blue(), b.blue()), alpha / 255);
}

Vetra::Color faded(const Vetra::Color& color, double share)
{
    return Vetra::Color(color.red() / 255.0, color.green() / 255.0, color.blue() / 255.0,
                        color.alpha() / 255.0 * share);
}

} // namespace Tova2
