#include "nodes/nodeimpl.h"
#include "nodes/values.h"

#include <cmath>

namespace Tova2 {

namespace {

QTransform placed(const QTransform& transform, const QPointF& position)
{
    return transform * QTransform::fromTranslate(position.x(), position.y());
}

} // namespace

QTransform NodeImpl::localTransform() const
{
    const QPointF position = pos();
    return m_hasTransform ? placed(transform(), position)
                          : QTransform::fromTranslate(position.x(), position.y());
}

// By a loop instead of the toolkit's own cached value, which recurses to the root on each call.
QTransform NodeImpl::sceneTransform() const
{
    QTransform result = localTransform();
    for (const NodeImpl* node = parentNode(); node; node = node->parentNode()) {
        const QPointF position = node->pos();
        if (node->m_hasTransform)
            result *= node->localTransform();
        else
            result *= QTransform::fromTranslate(position.x(), position.y());
    }
    return result;
}

QTransform NodeImpl::nodeToDevice(const QTransform& view) const
{
    // The outermost node that ignores transformations is where the view's scale and turn end.
    const NodeImpl* anchor = nullptr;
    for (const NodeImpl* node = this; node; node = node->parentNode()) {
        if (node->m_ignoresTransformations)
            anchor = node;
    }
    if (!anchor)
        return sceneTransform() * view;
    const QPointF origin = (anchor->sceneTransform() * view).map(QPointF());
    QTransform local;
    for (const NodeImpl* node = this; node != anchor; node = node->parentNode())
        local *= node->localTransform();
    if (anchor->m_hasTransform)
        local *= anchor->transform();
    return placed(local, origin);
}

void NodeImpl::setPosition(const QPointF& position)
{
    if (!isFinite(position))
        return;
    // Exact, unlike QPointF's comparison: a finite value is stored as it is.
    if (position.x() == pos().x() && position.y() == pos().y())
        return;
    // The toolkit takes two points for one when they are nearly equal; a detour makes it look
    // again.
    if (position == pos())
        setPos(position + QPointF(1 + std::abs(position.x()), 0));
    setPos(position);
    reportChange(ChangeLevel::Placement);
}

void NodeImpl::setLocalTransform(const QTransform& transform)
{
    const bool isUsable = std::isfinite(transform.m11()) && std::isfinite(transform.m12()) &&
                          std::isfinite(transform.m21()) && std::isfinite(transform.m22()) &&
                          std::isfinite(transform.dx()) && std::isfinite(transform.dy());
    if (!isUsable || transform == this->transform())
        return;
    QGraphicsItem::setTransform(transform);
    m_hasTransform = !transform.isIdentity();
    reportChange(ChangeLevel::Placement);
}

} // namespace Tova2
