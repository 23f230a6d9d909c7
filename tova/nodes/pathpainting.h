#pragma once

#include "nodes/pathnodeimpl.h"

namespace Tova2 {

class LineCollector;
class Polylines;

/// One paint of a path. Of a long path only the chunks that are exposed are drawn.
class PathNodeImpl::Painting {
public:
    Painting(const PathNodeImpl& node, PaintContext& context);

    void run();

private:
    /// Above so many those that no pixel tells apart are left out.
    static constexpr std::size_t kManyPoints = 4096;
    /// As many curved pieces are not looked at all for the sake of their dashes.
    static constexpr std::size_t kManyDashed = 50'000;

    struct Stretch {
        std::size_t first, count; ///< pieces within the run, all of them seen
        double lengthBefore;      ///< for dashes
    };
    using Ranges = boost::container::small_vector<Range, 2>;
    using Stretches = boost::container::small_vector<Stretch, 2>;

    void findExposed();
    double scale() const; ///< device units a unit of the node
    bool isSeen(std::size_t piece) const
    {
        return m_flat.chunks.empty() ||
               m_flat.chunks[piece / FlatChunk::kPieces].touches(m_exposed);
    }
    bool isAllSeen() const;
    void setStyle(const Stroke& stroke, bool isFilled);
    void drawLoop(const Stroke& stroke);
    void drawRun(const Run& run);
    bool chordsAreSmooth() const;
    bool isDrawnByChords(const Run& run) const;
    static bool isDashed(const Run& run);
    void drawFarLines();

    Run fromUnseen(const Run& run) const;
    Stretches seenParts(const Run& run) const;
    template <class Visit>
    void forEachMark(const Run& run, const Stretches& stretches, Visit visit) const;
    void drawMarkedLines(const Run& run, const Stretches& stretches);
    void drawLines(const Run& run, const Stretches& stretches);
    /// With their marks; `arcs`, if any, takes those that are drawn on their own.
    Polylines& collectLines(const Run& run, const Stretches& stretches, QPainterPath* arcs);
    bool isAllExposed() const;
    void drawArcs(const QPainterPath& arcs, Stroke stroke);
    void addStretch(const Run& run, const Stretch& stretch, LineCollector& collector);
    void drawCurves(const Run& run, const Stretches& stretches);
    void drawMarkedCurves(const Run& run, const Stretches& stretches);
    void drawFades(const Run& run, const Stretches& stretches);
    Range segmentsAround(const Run& run, const Stretch& stretch) const;
    Ranges segmentsAround(const Run& run, const Stretches& stretches) const;

    const PathNodeImpl& m_node;
    PaintContext& m_context;
    FlatPath m_flat;
    CrossingMarks* m_marks;      ///< null where there are none
    QRectF m_exposed;            ///< in the node's coordinates, with room for strokes
    bool m_isAllExposed = false; ///< without a look at what is
    double m_fadingWidth = 0;    ///< of the line, where fades are part of it
};

} // namespace Tova2
