#include "nodes/effects/effectcache.h"
#include "nodes/effects/effectlayer.h"
#include "nodes/effects/effectpainting.h"
#include "nodes/effects/effectplacement.h"
#include "nodes/effects/silhouettestyle.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"

#include <algorithm>

namespace Tova2 {

void NodeImpl::paintWithEffects(PaintContext& context) const
{
    if (m_style.effect().isEmpty())
        return paintNode(context);
    // A host's painter may give the node another style meanwhile.
    const EffectLayers layers = layersOf(m_style.effect(), context.options().quality);
    const bool isSeen = !layers.empty() && !strokedRectAt(context.options().viewScale).isEmpty();
    for (const EffectLayer& layer : layers) {
        if (isSeen && layer.isBelow)
            paintEffect(*this, layer, context);
    }
    paintNode(context);
    for (const EffectLayer& layer : layers) {
        if (isSeen && !layer.isBelow)
            paintEffect(*this, layer, context);
    }
}

QRectF NodeImpl::paintedRect(const QTransform& toTarget, const QTransform& view,
                             double viewScale) const
{
    const QRectF own = strokedRectAt(viewScale);
    if (m_style.effect().isEmpty() || own.isEmpty())
        return toTarget.mapRect(own);
    const EffectReach reach = reachOf(m_style.effect(), viewScale);
    const double around = silhouetteBox(viewScale) ? reach.around : reach.aroundCorners;
    const QRectF local = own.adjusted(-around, -around, around, std::max(around, reach.below));
    const QRectF shifted = effectLengths(*this, toTarget, view).mapRect(reach.shifted);
    return toTarget.mapRect(local).adjusted(shifted.left(), shifted.top(), shifted.right(),
                                            shifted.bottom());
}

QRectF NodeImpl::paintedRect() const
{
    if (m_style.effect().isEmpty())
        return strokedRect();
    bool isInvertible = false;
    const QTransform toLocal = sceneTransform().inverted(&isInvertible);
    return paintedRect(QTransform(), isInvertible ? toLocal : QTransform(), 1.0);
}

QPainterPath NodeImpl::silhouetteOutline(double) const
{
    return outline().asQPainterPath();
}

bool NodeImpl::hidesItsSilhouette() const
{
    return isPaintedOpaquely(m_style);
}

void NodeImpl::forgetEffectPictures() const
{
    if (!m_hasEffectPictures)
        return;
    m_hasEffectPictures = false;
    EffectCache::instance().forget(*this);
}

} // namespace Tova2
