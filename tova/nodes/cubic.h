#pragma once

#include <QPointF>
#include <QRectF>

#include <array>
#include <utility>
#include <vector>

namespace Tova2 {

/// A cubic Bézier curve by its two ends and the two control points between them.
struct Cubic {
    std::array<QPointF, 4> points;

    QPointF at(double t) const;
    /// Of the curve itself, not of its control points.
    QRectF boundingRect() const;
    std::pair<Cubic, Cubic> splitAt(double t) const;
    /// The ends of chords that are off by less than 0.05 units and `part` of the curve; without the
    /// curve's start.
    void appendChords(std::vector<QPointF>& points, double part = 1.0 / 200) const;
    /// The same with chords that are off by less than `flatness`.
    void appendChordsWithin(double flatness, std::vector<QPointF>& points) const;

    /// How many parts it takes to make chords as flat where it is very long.
    double chordRuns(double flatness) const;

    /// The greater of the second differences, which bound how far a chord is off.
    double bend() const;
};

} // namespace Tova2
