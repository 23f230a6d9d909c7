#include "nodes/crossings/markedpath.h"

namespace Tova2 {

void MarkedPath::add(const CrossingMarks::Marked& marked)
{
    for (const CrossingMarks::Mark& mark : marked.marks) {
        const auto curves = marked.curves(mark);
        const QPointF from = marked.at(mark.from);
        const bool isApart = curves.empty() || mark.isApart || isDashed;
        lines.back().path.lineTo(from);
        QPainterPath& path = isApart ? arcs : lines.back().path;
        if (isApart && !curves.empty())
            path.moveTo(from);
        for (const auto& [control1, control2, end] : curves)
            path.cubicTo(control1, control2, end);
        if (!isApart)
            continue;
        lines.back().gap = mark.to - mark.from;
        begin(marked.at(mark.to));
    }
}

} // namespace Tova2
