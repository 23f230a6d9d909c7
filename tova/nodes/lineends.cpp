#include "nodes/lineends.h"

#include "nodes/nodeimpl.h"

#include "vetra/qt.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

bool isChildOf(const Node& node, const NodeImpl& line)
{
    if (!node.isValid())
        return false;
    const Node parent = node.getParent();
    return parent.isValid() && parent.getReferenced() == &line;
}

} // namespace

double LineTip::distance(const QPointF& a, const QPointF& b)
{
    return std::hypot(b.x() - a.x(), b.y() - a.y());
}

LineTip LineTip::between(const QPointF& from, const QPointF& to)
{
    // Halved, since the difference of two finite numbers may not be one.
    const QPointF step(to.x() / 2 - from.x() / 2, to.y() / 2 - from.y() / 2);
    const double length = std::hypot(step.x(), step.y());
    return {to, length > 0 ? step / length : QPointF()};
}

LineEnds::LineEnds() = default;
LineEnds::~LineEnds() = default;

LineEndDecoration LineEnds::decoration(Which which) const
{
    return m_ends ? m_ends->of(which).decoration : LineEndDecoration();
}

LineEndDecoration& LineEnds::mutableDecoration(Which which)
{
    if (!m_ends)
        m_ends = std::make_unique<Both>();
    return m_ends->of(which).decoration;
}

bool LineEnds::set(Which which, const LineEndDecoration& decoration, NodeImpl& line)
{
    const LineEndDecoration old = std::exchange(mutableDecoration(which), decoration);
    try {
        return applyOne(which, line);
    } catch (...) {
        m_ends->of(which).decoration = old;
        throw;
    }
}

bool LineEnds::apply(NodeImpl& line)
{
    if (!m_ends)
        return false;
    const bool isStartOther = applyOne(Which::Start, line);
    return applyOne(Which::End, line) || isStartOther;
}

bool LineEnds::applyOne(Which which, NodeImpl& line)
{
    End& end = m_ends->of(which);
    Node node = end.decoration.getNode();
    if (node.isValid() && !isChildOf(node, line)) {
        try {
            node.setParent(line.handle());
        } catch (...) {
            // A refused node must not stay: the line itself would hold itself for ever.
            if (!isChildOf(node, line))
                end.decoration.setNode(end.child);
            throw;
        }
    }
    const Node former = std::exchange(end.child, node);
    if (!(former == node))
        dismiss(former, line);
    const double backoff = node.isValid() ? std::max(end.decoration.getLineBackoff(), 0.0) : 0;
    return std::exchange(end.backoff, backoff) != backoff;
}

void LineEnds::dismiss(Node node, const NodeImpl& line)
{
    if (!isChildOf(node, line) || node == m_ends->start.child || node == m_ends->end.child)
        return;
    node.remove();
    if (isChildOf(node, line))
        node.unparent();
}

void LineEnds::place(Which which, const LineTip& tip, const NodeImpl& line)
{
    if (!m_ends)
        return;
    End& end = m_ends->of(which);
    end.decoration.setPosition(Vetra::fromQt(tip.position));
    end.decoration.setDirection(Vetra::fromQt(tip.direction));
    if (isChildOf(end.child, line) && end.child == end.decoration.getNode())
        end.decoration.updateTransform();
}

double LineEnds::backoff(Which which) const
{
    return m_ends ? m_ends->of(which).backoff : 0;
}

} // namespace Tova2
