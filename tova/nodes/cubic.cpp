#include "nodes/cubic.h"

#include "nodes/segmenttests.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr double kFlatness = 0.05;
constexpr double kMostChords = 256;

struct Range {
    double least, most;
    void include(double v)
    {
        least = std::min(least, v);
        most = std::max(most, v);
    }
};

double valueAt(double a, double b, double c, double d, double t)
{
    const double s = 1 - t;
    return s * s * s * a + 3 * s * s * t * b + 3 * s * t * t * c + t * t * t * d;
}

/// Of one coordinate: its ends and where it turns round.
Range rangeOf(double a, double b, double c, double d)
{
    Range range{std::min(a, d), std::max(a, d)};
    if (std::min(b, c) >= range.least && std::max(b, c) <= range.most)
        return range;
    // The derivative over 3: p t² + 2 q t + r.
    const double p = d - 3 * c + 3 * b - a, q = c - 2 * b + a, r = b - a;
    const double root = std::sqrt(q * q - p * r);
    // Summed without cancellation; the other solution follows from the product of the two.
    const double sum = -(q + std::copysign(root, q));
    for (const double t : {sum / p, r / sum}) {
        if (t > 0 && t < 1)
            range.include(valueAt(a, b, c, d, t));
    }
    return range;
}

} // namespace

QPointF Cubic::at(double t) const
{
    const auto& p = points;
    return {valueAt(p[0].x(), p[1].x(), p[2].x(), p[3].x(), t),
            valueAt(p[0].y(), p[1].y(), p[2].y(), p[3].y(), t)};
}

QRectF Cubic::boundingRect() const
{
    const auto& p = points;
    const Range x = rangeOf(p[0].x(), p[1].x(), p[2].x(), p[3].x());
    const Range y = rangeOf(p[0].y(), p[1].y(), p[2].y(), p[3].y());
    return {x.least, y.least, x.most - x.least, y.most - y.least};
}

std::pair<Cubic, Cubic> Cubic::splitAt(double t) const
{
    const auto between = [t](const QPointF& a, const QPointF& b) { return a + (b - a) * t; };
    const auto& p = points;
    const QPointF ab = between(p[0], p[1]), bc = between(p[1], p[2]), cd = between(p[2], p[3]);
    const QPointF abc = between(ab, bc), bcd = between(bc, cd), middle = between(abc, bcd);
    return {{{p[0], ab, abc, middle}}, {{middle, bcd, cd, p[3]}}};
}

double Cubic::bend() const
{
    const auto& p = points;
    const QPointF bend1 = p[0] - 2 * p[1] + p[2], bend2 = p[1] - 2 * p[2] + p[3];
    return std::sqrt(std::max(Segments::squaredLength(bend1), Segments::squaredLength(bend2)));
}

void Cubic::appendChords(std::vector<QPointF>& chords, double part) const
{
    appendChordsWithin(std::min(kFlatness, bend() * part), chords);
}

double Cubic::chordRuns(double flatness) const
{
    const double chords = std::sqrt(0.75 * bend() / flatness);
    return flatness > 0 ? std::clamp(std::ceil(chords / kMostChords), 1.0, kMostChords) : 1.0;
}

void Cubic::appendChordsWithin(double flatness, std::vector<QPointF>& chords) const
{
    // A chord is off by 6/8 of the bend over the square of their number.
    const double count =
        flatness > 0 ? std::clamp(std::ceil(std::sqrt(0.75 * bend() / flatness)), 1.0, kMostChords)
                     : 1.0;
    for (double i = 1; i < count; ++i)
        chords.push_back(at(i / count));
    chords.push_back(points[3]);
}

} // namespace Tova2
