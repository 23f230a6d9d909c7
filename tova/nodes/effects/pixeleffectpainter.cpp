#include "nodes/effects/pixeleffectpainter.h"

#include "nodes/effects/boxblur.h"
#include "nodes/effects/effectlayer.h"
#include "nodes/effects/effectplacement.h"
#include "nodes/effects/softsilhouette.h"
#include "nodes/effects/traceoutline.h"
#include "nodes/effects/wave.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "nodes/pathclip.h"
#include "nodes/values.h"

#include <QPainter>

#include <cmath>

namespace Tova2 {

namespace {

constexpr double kShortestPeriod = 4; // pixels; shorter waves are drawn as a line
constexpr double kMostWaves = 20'000;

/// The painter as it was, in the node's coordinates, and smooth.
class LocalPainter {
public:
    explicit LocalPainter(PaintContext& context)
        : m_context(context), m_painter(context.localPainter())
    {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
    }
    ~LocalPainter()
    {
        m_painter.restore();
        m_context.forgetPainterState();
    }
    LocalPainter(const LocalPainter&) = delete;
    LocalPainter& operator=(const LocalPainter&) = delete;
    QPainter* operator->() { return &m_painter; }

private:
    PaintContext& m_context;
    QPainter& m_painter;
};

/// Where pixels are not all there is, what needs no softening stays an area with edges.
void fillMoved(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    const EffectPlacement place(node, layer, context);
    const double ratio = context.pixelRatio();
    const QPainterPath area = node.silhouetteOutline(context.options().viewScale);
    LocalPainter painter(context);
    painter->setWorldTransform(
        context.nodeToDevice() *
        QTransform::fromTranslate(place.offset.x() / ratio, place.offset.y() / ratio));
    painter->fillPath(area, layer.color);
}

void paintBlur(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    if (paintSoftBox(node, layer, context))
        return;
    if (context.isOnPixels())
        return paintSoftSilhouette(node, layer, context);
    // No pictures of masks: they would have the resolution of today's device.
    LocalPainter painter(context); // a host's painter may throw
    if (layer.masksNode) {
        const EffectPlacement place(node, layer, context);
        const QRectF all = place.toPixels.inverted().mapRect(context.exposedPixels());
        intersectClip(*painter.operator->(),
                      outsideOf(node.silhouetteOutline(context.options().viewScale), all));
    }
    if (layer.deviation == 0)
        fillMoved(node, layer, context);
    else
        paintSoftSilhouette(node, layer, context);
}

void paintTint(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    const double viewScale = context.options().viewScale;
    const bool isAligned = node.drawStyle().isPixelAligned();
    if (const auto box = node.silhouetteBox(viewScale); box && !isAligned) {
        LocalPainter painter(context);
        painter->setRenderHint(QPainter::Antialiasing, node.drawStyle().isAntiAliased());
        painter->fillPath(box->path(), layer.color);
    } else {
        paintSoftSilhouette(node, layer, context);
    }
}

void paintWave(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    const QTransform toPixels = context.nodeToPixels();
    const double viewScale = context.options().viewScale;
    const QRectF rect = node.strokedRectAt(viewScale);
    const QRectF exposed = toPixels.inverted().mapRect(context.exposedPixels());
    const double period = Wave::kPeriod * std::sqrt(std::abs(toPixels.determinant()));
    const double shown =
        std::min(rect.right(), exposed.right()) - std::max(rect.left(), exposed.left());
    LocalPainter painter(context);
    if (period < kShortestPeriod || !(shown < kMostWaves * Wave::kPeriod)) {
        painter->fillRect(Wave::bandBelow(rect), layer.color);
        return;
    }
    QPen pen(layer.color, Wave::kPen);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter->strokePath(Wave::below(rect, exposed.left(), exposed.right()), pen);
}

} // namespace

PixelEffectPainter& PixelEffectPainter::instance()
{
    static PixelEffectPainter painter;
    return painter;
}

void PixelEffectPainter::paint(const NodeImpl& node, const EffectLayer& layer,
                               PaintContext& context)
{
    switch (layer.kind) {
    case EffectLayer::Kind::Blur:
        return paintBlur(node, layer, context);
    case EffectLayer::Kind::Tint:
        return paintTint(node, layer, context);
    case EffectLayer::Kind::Outline:
        return paintTrace(node, layer, context);
    case EffectLayer::Kind::Wave:
        return paintWave(node, layer, context);
    }
}

} // namespace Tova2
