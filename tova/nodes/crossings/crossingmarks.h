#pragma once

#include "nodes/crossings/segmentcrossings.h"
#include "nodes/strokearea.h"

#include <QPainterPath>
#include <QTransform>

#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

class LinearPathNodeImpl;

/// What is drawn along those straight segments of a path that others cross, in the path's own
/// coordinates. Which segments they are is found once; marks are laid out for one view scale, each
/// when it is asked for first, since their size follows the zoom.
class CrossingMarks {
public:
    using Element = QPainterPath::Element;

    /// A piece of the line from where it is clear towards where it is whole. Drawn as far as `end`.
    struct Fade {
        QPointF clear, full, end;
    };

    /// Of one segment. Good until another is laid out.
    struct Marks {
        std::span<const Element> line; ///< follows the segment's start, and leads to its end
        std::span<const Element> thinHops;
        std::span<const Fade> fades;
    };

    /// The path has to be in a scene that draws crossings, and outlive this along with the records.
    CrossingMarks(const LinearPathNodeImpl& path, std::span<const PathIntersection> crossings);

    /// Whether the path is still placed as it was.
    bool isFor(const QTransform& toScene) const { return toScene == m_toScene; }
    void setScale(double viewScale);

    std::size_t count() const { return m_segments.size(); }
    /// Ascending.
    std::size_t segment(std::size_t index) const { return m_segments[index].segment; }
    /// The first that does not come before the segment.
    std::size_t indexFrom(std::size_t segment) const;
    Marks at(std::size_t index);
    /// Of the whole path with its marks, once it has been drawn at the scale.
    StrokeArea& area() { return m_area; }

private:
    /// Where something ends; it begins where the same of the last one laid out ended.
    struct Extent {
        std::uint32_t first = 0, count = 0;
    };
    struct Segment {
        std::uint32_t segment;
        bool isLaidOut = false;
        Extent line, thinHops, fades;
    };

    void findSegments();
    void layOut(Segment& segment);
    Extent addElements(const QPainterPath& path, int first);
    Extent addFadingLine(const CrossingOutline& outline);

    const LinearPathNodeImpl& m_path;
    QTransform m_toScene, m_toLocal;
    SegmentCrossings m_crossings;
    std::vector<Segment> m_segments;
    double m_scale = 0; ///< that the rest is laid out for
    std::vector<Element> m_elements;
    std::vector<Fade> m_fades;
    StrokeArea m_area;
};

} // namespace Tova2
