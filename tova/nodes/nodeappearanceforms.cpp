#include "tova/nodes/node.h"

#include "nodes/destruction.h"
#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"

#include "vetra/qt.h"

namespace Tova2 {

namespace {

/// A copy of the node's style with one part set.
template <class Change>
void changeStyle(NodeImpl* impl, Change change)
{
    DrawStyle style = impl->drawStyle();
    change(style);
    impl->setDrawStyle(style);
}

} // namespace

DrawStyle Node::getDrawStyle() const
{
    return getValidImpl()->drawStyle();
}

void Node::setDrawStyle(const DrawStyle& style)
{
    getValidImpl()->setDrawStyle(style);
}

Stroke Node::getStroke() const
{
    return getValidImpl()->drawStyle().stroke();
}

void Node::setStroke(const Stroke& stroke)
{
    changeStyle(getValidImpl(), [&](DrawStyle& style) { style.setStroke(stroke); });
}

Fill Node::getFill() const
{
    return getValidImpl()->drawStyle().fill();
}

void Node::setFill(const Fill& fill)
{
    changeStyle(getValidImpl(), [&](DrawStyle& style) { style.setFill(fill); });
}

Effect Node::getEffect() const
{
    return getValidImpl()->drawStyle().effect();
}

void Node::setEffect(const Effect& effect)
{
    changeStyle(getValidImpl(), [&](DrawStyle& style) { style.setEffect(effect); });
}

Vetra::Color Node::getStrokeColor() const
{
    return getValidImpl()->drawStyle().stroke().color();
}

void Node::setStrokeColor(const Vetra::Color& color)
{
    Stroke stroke = getStroke();
    stroke.setColor(color);
    setStroke(stroke);
}

Vetra::Color Node::getFillColor() const
{
    return getValidImpl()->drawStyle().fill().color();
}

void Node::setFillColor(const Vetra::Color& color)
{
    Fill fill = getFill();
    fill.setColor(color);
    setFill(fill);
}

double Node::getOpacity() const
{
    return getValidImpl()->opacity();
}

void Node::setOpacity(double opacity)
{
    getValidImpl()->setNodeOpacity(opacity);
}

void Node::setVisible(bool visible)
{
    getValidImpl()->setNodeVisible(visible);
}

bool Node::isVisible() const
{
    const NodeImpl* const impl = getImpl();
    return impl && impl->isVisibleItself();
}

bool Node::isVisibleToScene() const
{
    const NodeImpl* const impl = getImpl();
    return impl && impl->isVisibleToScene();
}

void Node::setCacheType(CacheType type)
{
    getValidImpl()->setCacheType(type);
}

CacheType Node::getCacheType() const
{
    return getValidImpl()->cacheType();
}

void Node::setMinLODQuality(std::uint8_t quality)
{
    getValidImpl()->setMinLODQuality(quality);
}

std::uint8_t Node::getMinLODQuality() const
{
    return getValidImpl()->minLODQuality();
}

bool Node::canRenderAtLODQuality(std::uint8_t quality, double scale) const
{
    return getValidImpl()->canRenderAtLODQuality(quality, scale);
}

void Node::setCursor(const Vetra::Cursor& cursor)
{
    getValidImpl()->madeExtras().cursor = cursor;
}

void Node::unsetCursor()
{
    if (NodeExtras* const extras = getValidImpl()->extras())
        extras->cursor.reset();
}

bool Node::hasCursor() const
{
    const NodeExtras* const extras = getValidImpl()->extras();
    return extras && extras->cursor.has_value();
}

Vetra::Cursor Node::getCursor() const
{
    const NodeExtras* const extras = getValidImpl()->extras();
    return extras && extras->cursor ? *extras->cursor : Vetra::Cursor();
}

void Node::setCustomHitTestFunctor(CustomHitTestFunctor* functor)
{
    getValidImpl()->setHitTester(functor);
}

bool Node::contains(const Vetra::GLPoint<double>& point) const
{
    const DestructionDelay delay;
    return getValidImpl()->hitContains(Vetra::toQt(point));
}

bool Node::containsScenePoint(const Vetra::GLPoint<double>& point) const
{
    const DestructionDelay delay;
    NodeImpl* const impl = getValidImpl();
    bool isInvertible = false;
    const QTransform toLocal = impl->sceneTransform().inverted(&isInvertible);
    return isInvertible && impl->hitContains(toLocal.map(Vetra::toQt(point)));
}

bool Node::intersects(const Vetra::GLRect<double>& rect) const
{
    const DestructionDelay delay;
    return getValidImpl()->hitIntersects(Vetra::toQt(rect));
}

bool Node::intersects(const Bounds& bounds) const
{
    const DestructionDelay delay;
    return getValidImpl()->hitIntersects(bounds);
}

} // namespace Tova2
