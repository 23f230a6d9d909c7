#include "nodes/outlinepieces.h"

#include "nodes/values.h"

#include <QPainterPath>

namespace Tova2 {

namespace {

QPointF normalized(const QPointF& v)
{
    return v / std::hypot(v.x(), v.y());
}

bool hasExtent(const OutlinePiece& piece)
{
    const auto& p = piece.points;
    return !isSame(p[0], p[3]) || (piece.isCurve && !(isSame(p[0], p[1]) && isSame(p[0], p[2])));
}

class SubpathCollector {
public:
    void moveTo(const QPointF& p)
    {
        finish();
        m_current.start = m_position = p;
    }
    void lineTo(const QPointF& p) { add({{m_position, m_position, p, p}, false}); }
    void curveTo(const QPointF& c1, const QPointF& c2, const QPointF& p)
    {
        add({{m_position, c1, c2, p}, true});
    }
    std::vector<OutlineSubpath> take()
    {
        finish();
        return std::move(m_done);
    }

private:
    void add(const OutlinePiece& piece)
    {
        m_isDrawn = true;
        if (hasExtent(piece))
            m_current.pieces.push_back(piece);
        m_position = piece.end();
    }
    void finish()
    {
        if (m_isDrawn)
            m_done.push_back(std::move(m_current));
        m_current = {};
        m_isDrawn = false;
    }

    std::vector<OutlineSubpath> m_done;
    OutlineSubpath m_current;
    QPointF m_position;
    bool m_isDrawn = false;
};

} // namespace

QPointF OutlinePiece::startDirection() const
{
    for (std::size_t i = 1; isCurve && i < 3; ++i) {
        if (!isSame(points[i], start()))
            return normalized(points[i] - start());
    }
    return normalized(end() - start());
}

QPointF OutlinePiece::endDirection() const
{
    for (std::size_t i = 2; isCurve && i > 0; --i) {
        if (!isSame(points[i], end()))
            return normalized(end() - points[i]);
    }
    return normalized(end() - start());
}

bool OutlineSubpath::isClosed() const
{
    return !pieces.empty() && isSame(pieces.back().end(), start);
}

std::vector<OutlineSubpath> subpathsOf(const QPainterPath& path)
{
    SubpathCollector collector;
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto element = path.elementAt(i);
        if (element.isMoveTo()) {
            collector.moveTo(element);
        } else if (element.isLineTo()) {
            collector.lineTo(element);
        } else if (i + 2 < path.elementCount()) {
            collector.curveTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
            i += 2;
        }
    }
    return collector.take();
}

} // namespace Tova2
