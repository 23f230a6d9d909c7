#pragma once

#include "nodes/crossings/crossingmarks.h"

#include <QPainterPath>
#include <QRectF>

#include <vector>

namespace Tova2 {

/// A line with its marks as curves, for whoever draws curves. Arcs that are apart are drawn with
/// the line's own pen but without its dashes.
struct MarkedPath {
    struct Line {
        QPainterPath path;
        double gap = 0; ///< after it, on the way to the next
    };

    QRectF seen;
    bool isDashed = false; ///< a line for each piece between gaps, and all arcs apart
    std::vector<Line> lines;
    QPainterPath arcs;

    void begin(const QPointF& start)
    {
        if (isDashed || lines.empty())
            lines.push_back({});
        lines.back().path.moveTo(start);
    }
    /// From where the line is as far as its last mark.
    void add(const CrossingMarks::Marked& marked);
};

} // namespace Tova2
