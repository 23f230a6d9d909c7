#pragma once

#include "nodes/crossings/segmentcrossings.h"
#include "nodes/strokearea.h"

#include <QPainterPath>
#include <QRectF>
#include <QTransform>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

class LinearPathNodeImpl;

// What is drawn along those straight segments of a path that others cross. Which segments they are
// is found once; each is laid out when it is asked for first at a view scale, since the size of
// marks follows the zoom. What is laid out is an index by the distance along the segment, so that
// a paint visits the marks that it shows, and two steps of a search for each segment: O(log n + k)
// for k marks in view of n.

/// The marks of one path, in its own coordinates.
class CrossingMarks {
public:
    /// After the point where it begins: two control points, and its end.
    using Curve = std::array<QPointF, 3>;

    /// A piece of the line from where it is clear towards where it is whole, by distances along the
    /// segment. Drawn as far as `end`.
    struct Fade {
        double clear, full, end;
    };

    /// Where the line of a segment ends and goes on, by distances along it.
    struct Mark {
        double from, to;
        std::uint32_t firstCurve = 0, curveCount = 0; ///< an arc from one to the other
        std::uint32_t firstFade = 0, fadeCount = 0;   ///< in pairs, one out and one in
        bool isApart = false; ///< the arc is a line of its own, and the other ends for it
    };

    /// Of one segment. Good until another is laid out.
    struct Marked {
        QPointF start, along; ///< of length 1
        std::span<const Mark> marks;
        std::span<const Curve> allCurves;
        std::span<const Fade> allFades;

        QPointF at(double distance) const { return start + along * distance; }
        std::span<const Curve> curves(const Mark& mark) const
        {
            return allCurves.subspan(mark.firstCurve, mark.curveCount);
        }
        std::span<const Fade> fades(const Mark& mark) const
        {
            return allFades.subspan(mark.firstFade, mark.fadeCount);
        }
    };

    /// The path has to be in a scene that draws crossings, and outlive this along with the records.
    CrossingMarks(const LinearPathNodeImpl& path, std::span<const PathIntersection> crossings);

    /// Whether the path is still placed as it was.
    bool isFor(const QTransform& toScene) const { return toScene == m_toScene; }
    void setScale(double viewScale);

    std::size_t crossingCount() const { return m_crossings.count(); }
    /// Of the segments that have any.
    std::size_t count() const { return m_segments.size(); }
    /// Ascending.
    std::size_t segment(std::size_t index) const { return m_segments[index].segment; }
    /// The first that does not come before the segment.
    std::size_t indexFrom(std::size_t segment) const;
    /// Those whose place on the line may lie in the rectangle.
    Marked at(std::size_t index, const QRectF& seen);
    /// Of the whole path with its marks, once it has been drawn at the scale.
    StrokeArea& area() { return m_area; }

private:
    struct Segment {
        std::uint32_t segment;
        bool isLaidOut = false;
        std::uint32_t firstMark = 0, markCount = 0;
        QPointF start, along;
    };

    void findSegments();
    void layOut(Segment& segment);
    double distance(const Segment& segment, const QPointF& scenePoint) const;
    void addMarks(const Segment& segment, const CrossingOutline& outline);
    int addCurves(const QPainterPath& path, int first);
    void addPin(const Segment& segment, const PinMark& pin);

    // What every paint reads lies together.
    double m_scale = 0; ///< that marks are laid out for
    StrokeArea m_area;
    QTransform m_toScene, m_toLocal;
    const LinearPathNodeImpl& m_path;
    SegmentCrossings m_crossings;
    std::vector<Segment> m_segments;
    std::vector<Mark> m_marks;
    std::vector<Curve> m_curves;
    std::vector<Fade> m_fades;
};

} // namespace Tova2
