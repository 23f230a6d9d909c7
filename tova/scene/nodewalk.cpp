#include "scene/nodewalk.h"

#include "nodes/nodeimpl.h"
#include "nodes/pathclip.h"
#include "scene/nodecache.h"
#include "scene/renderpipeline.h"

#include "vetra/qt.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <vector>

namespace Tova2 {

namespace {

bool isSingular(const QTransform& transform)
{
    return !(std::abs(transform.determinant()) > 0) || !std::isfinite(transform.determinant());
}

} // namespace

NodeWalk::NodeWalk(QPainter& painter, const QTransform& view, const RenderRequest& request,
                   const PaintOptions& options, const NodeImpl* root)
    : m_painter(painter)
    , m_context(painter, view, options)
    , m_root(root)
    , m_deviceExposed(view.mapRect(request.exposed))
    , m_baseOpacity(painter.opacity())
    , m_isPixelDevice(request.isPixelDevice)
{
    m_context.setFillsStrokes(request.isPixelDevice);
    painter.save();
    // Besides keeping to the area, a rectangular clip lets the toolkit drop far ends of lines
    // early.
    painter.setWorldTransform(view);
    const bool isFree = !painter.hasClipping();
    if (!request.isClipped)
        painter.setClipRect(request.exposed, Qt::IntersectClip);
    // As the toolkit rounds rectangles to clip to.
    if (request.isPixelDevice && isFree)
        m_pixels = PixelArea::under(painter, m_context.exposedPixels().toRect());
    m_context.setPixels(m_pixels);
}

NodeWalk::~NodeWalk()
{
    m_context.flush();
    leaveClips();
    m_painter.restore();
}

const NodeImpl* NodeWalk::parentWithin(const NodeImpl& node) const
{
    return &node == m_root ? nullptr : node.parentNode();
}

void NodeWalk::paint(NodeImpl& node)
{
    const PaintOptions& options = m_context.options();
    if (!node.canRenderAtLODQuality(options.quality, options.viewScale))
        return;
    if (node.cacheType() == CacheType::NoCache || !m_isPixelDevice ||
        !NodeCache::paintCached(node, m_context))
        node.paintWithEffects(m_context);
}

void NodeWalk::paintPlain(NodeImpl& node)
{
    if (m_clipper)
        leaveClips();
    m_context.setOpacity(m_baseOpacity);
    if (!node.parentNode() && node.isTranslatedOnly()) {
        m_context.enter(node.pos());
        paint(node);
        return;
    }
    const QTransform toScene = m_placements.sceneTransform(node);
    if (toScene.type() <= QTransform::TxTranslate)
        m_context.enter(QPointF(toScene.dx(), toScene.dy()));
    else if (!isSingular(toScene))
        m_context.enter(toScene * m_context.view());
    else
        return;
    paint(node);
}

void NodeWalk::paintSpecial(NodeImpl& node)
{
    double opacity = m_baseOpacity;
    for (const NodeImpl* at = &node; at; at = parentWithin(*at))
        opacity *= at->opacity();
    const QTransform toDevice = node.nodeToDevice(m_context.view());
    const QRectF reach =
        node.paintedRect(toDevice, m_context.view(), m_context.options().viewScale);
    if (isSingular(toDevice) || !reach.adjusted(-2, -2, 2, 2).intersects(m_deviceExposed))
        return;
    useClipsOf(node);
    m_context.setOpacity(opacity);
    m_context.enter(toDevice);
    paint(node);
}

void NodeWalk::useClipsOf(const NodeImpl& node)
{
    std::vector<const NodeImpl*> clippers;
    for (const NodeImpl* at = parentWithin(node); at; at = parentWithin(*at)) {
        if (at->isClipping())
            clippers.push_back(at);
    }
    const NodeImpl* const nearest = clippers.empty() ? nullptr : clippers.front();
    if (nearest == m_clipper)
        return;
    leaveClips();
    if (!nearest)
        return;
    m_context.flush();
    m_context.setPixels({});
    m_painter.save();
    m_clipper = nearest;
    for (auto clipper = clippers.rbegin(); clipper != clippers.rend(); ++clipper)
        clipTo(**clipper);
    m_context.forgetPainterState();
}

void NodeWalk::clipTo(const NodeImpl& node)
{
    const QTransform toDevice = node.nodeToDevice(m_context.view());
    m_painter.setWorldTransform(toDevice);
    const Bounds shape = node.outline();
    if (shape.isOnlyRect() && toDevice.type() <= QTransform::TxScale)
        m_painter.setClipRect(Vetra::toQt(shape.boundingRect()), Qt::IntersectClip);
    else
        intersectClip(m_painter, shape.asQPainterPath());
}

void NodeWalk::leaveClips()
{
    if (!m_clipper)
        return;
    m_context.flush();
    m_clipper = nullptr;
    m_painter.restore();
    m_context.forgetPainterState();
    m_context.setPixels(m_pixels);
}

} // namespace Tova2
