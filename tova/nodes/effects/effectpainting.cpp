#include "nodes/effects/effectpainting.h"

#include "nodes/effects/effectlayer.h"
#include "nodes/effects/effectplacement.h"
#include "nodes/effects/silhouettestyle.h"
#include "nodes/effects/softbox.h"
#include "nodes/effects/softsilhouette.h"
#include "nodes/effects/traceoutline.h"
#include "nodes/effects/wave.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "nodes/pathclip.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr double kShortestPeriod = 4; // pixels; shorter waves are drawn as a line
constexpr double kLeastWave = 1;      // pixels of height; of the coarsest pictures
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
    QPainter& operator*() { return m_painter; }

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
    QColor color = layer.color;
    color.setAlphaF(color.alphaF() * std::min(layer.gain, 1.0));
    painter->fillPath(area, color);
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

/// In one colour as the lines and areas that it is. Where a translucent colour would show twice,
/// what the stroke covers and the inside are drawn as one.
void paintInk(const NodeImpl& node, const QColor& color, PaintContext& context)
{
    const DrawStyle& style = node.drawStyle();
    const double viewScale = context.options().viewScale;
    LocalPainter painter(context);
    if (color.alpha() < 255 && isFilled(style.fill()) && isStroked(style.stroke())) {
        painter->fillPath(node.silhouetteOutline(viewScale), color);
        return;
    }
    PaintContext own(*painter, context.view(), context.options());
    own.setSilhouette(0, Vetra::fromQt(color));
    own.setOpacity(context.opacity());
    own.enterLike(context);
    node.paintSilhouette(own);
}

void paintTint(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    const double viewScale = context.options().viewScale;
    const bool isAligned = node.drawStyle().isPixelAligned();
    if (const auto box = node.silhouetteBox(viewScale); box && !isAligned) {
        LocalPainter painter(context);
        painter->setRenderHint(QPainter::Antialiasing, node.drawStyle().isAntiAliased());
        painter->fillPath(box->path(), layer.color);
    } else if (!context.isOnPixels() && node.isSilhouetteOfInk()) {
        paintInk(node, layer.color, context);
    } else {
        paintSoftSilhouette(node, layer, context);
    }
}

void paintWave(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    const QTransform toPixels = context.nodeToPixels();
    const double viewScale = context.options().viewScale;
    if (context.options().quality == 0 && Wave::kHeight * context.pixelsAUnit() < kLeastWave)
        return;
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

void paintEffect(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
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
