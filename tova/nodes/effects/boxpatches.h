#pragma once

#include "nodes/cachebudget.h"

#include <QColor>
#include <QImage>

#include <array>
#include <list>
#include <memory>
#include <vector>

namespace Tova2 {

/// What the softened edge of a box depends on, in pixels.
struct BoxEdge {
    double radius, deviationX, deviationY, gain;
    QRgb color;

    bool operator==(const BoxEdge&) const = default;
    int outside(Qt::Orientation across) const; ///< from the edge, as far as softening reaches
    int inside(Qt::Orientation across) const;  ///< from there on all is of one colour
};

/// The corners and edges of softened boxes, by how much of a pixel the box's edges cover.
class BoxPatch {
public:
    static constexpr int kPhases = 8;
    /// Pixels along it; longer edges are laid out of several.
    static constexpr int kEdgeLength = 128;
    enum Corner { TopLeft, TopRight, BottomLeft, BottomRight };
    enum Side { Left, Top, Right, Bottom };

    explicit BoxPatch(const BoxEdge& edge) : m_edge(edge) {}

    const BoxEdge& edge() const { return m_edge; }
    /// Phases count from the outer side of the pixel that the edge lies in.
    const QImage& corner(Corner which, int phaseX, int phaseY);
    const QImage& side(Side which, int phase);
    std::size_t bytes() const { return m_bytes; }

private:
    QImage madeCorner(int phaseX, int phaseY) const;
    QImage madeSide(Side which, int phase);

    BoxEdge m_edge;
    std::array<std::array<QImage, kPhases * kPhases>, 4> m_corners;
    std::array<std::array<QImage, kPhases>, 4> m_sides;
    std::size_t m_bytes = 0;
};

/// Patches in use, within the common budget.
class BoxPatches {
public:
    static BoxPatches& instance();

    /// Good until the next call of either operation.
    BoxPatch& patch(const BoxEdge& edge);
    /// To be called when the patch last asked for may have made pieces.
    void account();

private:
    struct Entry {
        BoxPatch patch;
        std::size_t counted = 0;
        std::vector<std::unique_ptr<CacheBudget::Share>> shares;
    };

    BoxPatches() = default;
    static void touch(Entry& entry);

    std::list<Entry> m_entries; ///< most recently used first
};

} // namespace Tova2
