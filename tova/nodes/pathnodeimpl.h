#pragma once

#include "nodes/flatpath.h"
#include "nodes/nodeimpl.h"
#include "nodes/outlinereach.h"

#include <QPainterPath>

#include <boost/container/small_vector.hpp>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace Tova2 {

class CrossingMarks;
struct MarkedPath;

/// What straight and curved paths share: strokes that change along the way, hit tests and bounds,
/// and paint. A derived class holds the vertices and says what is drawn between them.
///
/// Segment i joins vertices i and i + 1; that of the last vertex of a closed path leads back to the
/// first. Neighbouring segments of equal stroke are drawn as one line, with joins and running
/// dashes; where the stroke changes both end in their caps.
class PathNodeImpl : public NodeImpl {
public:
    ~PathNodeImpl() override;
    void inspect(Inspection& out) const override;

    const std::vector<Stroke>& strokes() const;
    /// Segments beyond the list have the node's own stroke.
    void setStrokes(const std::vector<Stroke>& strokes);
    const Stroke& strokeOf(std::size_t segment) const;
    std::size_t segmentCount() const;

    QRectF geometryRect() const override;
    bool hasOutline() const override;
    QRectF geometryRectAt(double viewScale) const override;
    bool geometryDependsOnScale() const override;
    QRectF strokedRect() const override { return extent().rect; }
    double strokeReach() const override { return extent().reach; }
    Bounds outline() const override;
    bool outlineContains(const QPointF& point) const override;
    bool outlineIntersects(const Bounds& area) const override;
    void paintNode(PaintContext& context) const override;
    bool hidesItsSilhouette() const override;
    QPainterPath silhouetteOutline(double viewScale) const override;
    QByteArray silhouetteKey() const override;

protected:
    PathNodeImpl();

    /// Segments, `last` included. On a closed path it may be beyond their number: the first follows
    /// the last.
    struct Range {
        std::size_t first, last;
    };

    /// What is drawn, where that differs from the vertices: chords, corners cut off, ends drawn
    /// back.
    struct Flattened {
        std::vector<QPointF> points;
        std::vector<std::uint32_t> segments;
        std::uint32_t firstSegment = 0;
    };

    virtual bool isClosed() const { return true; }
    virtual std::size_t vertexCount() const = 0;
    /// The vertices, if straight lines between them are all that is drawn; else nothing.
    virtual std::span<const QPointF> plainPoints() const = 0;
    virtual Flattened flattened() const = 0;
    virtual QRectF exactRect() const = 0;
    /// Whether lines between the flattened points are not good enough to be drawn.
    virtual bool isCurved() const = 0;
    /// Whether no join of a solid line so wide reaches farther than half its width. False is always
    /// safe.
    virtual bool hasSmoothCorners(double) const { return false; }
    /// How far from the flattened points the segments' own outlines may lie.
    virtual double slack() const { return 0; }
    /// As one line, from the first segment's start to the last one's end.
    virtual QPainterPath pathOf(const Range& range) const = 0;

    /// Whether there is anything to mark.
    virtual bool hasCrossings() const { return false; }
    /// Null where no crossing is drawn. They are the path's.
    virtual CrossingMarks* crossingMarks(double) const { return nullptr; }
    /// `pathOf` with the marks on its segments, as another line.
    virtual void appendMarked(const Range&, CrossingMarks&, MarkedPath&) const {}

    void dropCaches(ChangeLevel level) override;
    FlatPath flat() const;

private:
    struct Cache;
    struct OwnStrokes;
    /// Neighbouring pieces of one stroke; a closed path's may go on beyond its first point.
    struct Run {
        std::size_t first, count;
        const Stroke* stroke;
        bool isLoop;
    };
    class Painting;

    using Runs = boost::container::small_vector<Run, 2>;

    Cache& cache() const;
    const StrokeExtent& extent() const;
    StrokeExtent computedExtent() const;
    StrokeExtent extentOf(const FlatPath& flat, const Run& run, const QRectF& geometry) const;
    Bounds computedOutline() const;
    bool isExact() const;
    bool isFilled() const;
    double widestHalf() const;
    Runs runsOf(const FlatPath& flat) const;
    Range segmentsOf(const FlatPath& flat, std::size_t firstPiece, std::size_t count) const;
    QPainterPath wholePath() const;

    std::unique_ptr<OwnStrokes> m_strokes;  ///< null where the node's own stroke is all
    mutable std::unique_ptr<Cache> m_cache; ///< of what short plain paths do without
    mutable StrokeExtent m_extent{{}, -1};  ///< unknown while its reach is below 0
};

} // namespace Tova2
