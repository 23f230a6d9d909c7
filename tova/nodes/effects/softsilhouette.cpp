#include "nodes/effects/softsilhouette.h"

#include "nodes/effects/coverageplane.h"
#include "nodes/effects/effectcache.h"
#include "nodes/effects/effectlayer.h"
#include "nodes/effects/effectplacement.h"
#include "nodes/effects/silhouettekey.h"
#include "nodes/effects/silhouettesheet.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

// For any figure: the node draws itself in one colour on a sheet, the sheet's alpha is softened
// across and then down, and the result coloured. A pixel costs as many multiplications as softening
// reaches pixels, so that wide softening is done on a sheet of half the size, again and again by
// half, and enlarged: what is that soft has no detail that would be missed. Only exposed pixels and
// those that softening brings to them are drawn, and small pictures kept. (Separable filters on an
// image pyramid: any book on image processing.)

namespace Tova2 {

namespace {

/// A deviation of so many pixels looks the same in a picture of half the size, scaled up.
constexpr double kFineDeviation = 8, kFineDeviationAtLowQuality = 3;
/// Pictures up to here are made whole and kept; of larger ones the exposed part is made each time.
constexpr double kKeptPixels = 1 << 20;
/// Larger ones are made coarser instead.
constexpr double kMostPixels = 9e6;
/// Parts of a pixel that pictures are made for: a step is not seen where edges are soft, nor a
/// finer one at the edge of a mask.
constexpr double kPhases = 8, kMaskPhases = 16;

double area(const QRectF& rect)
{
    return rect.width() * rect.height();
}

QRectF divided(const QRectF& rect, double by)
{
    return {rect.x() / by, rect.y() / by, rect.width() / by, rect.height() / by};
}

class SoftSilhouette {
public:
    SoftSilhouette(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
        : m_node(node), m_layer(layer), m_context(context), m_place(node, layer, context)
    {}

    void paint();

private:
    struct Picture {
        QImage image;
        QPoint corner; ///< from the anchor, in the picture's own pixels
    };

    bool isSeen();
    void chooseSize();
    void chooseAnchor();
    QRectF relative(const QRectF& rect) const { return rect.translated(m_shift - m_anchor); }
    QRect pictureArea(double shrink) const;
    Picture picture() const;
    Picture made() const;
    Picture soft() const;
    Picture masked(const Picture& soft) const;
    void punchOut(Picture& picture) const;
    QByteArray key(const QByteArray& silhouette) const;

    const NodeImpl& m_node;
    const EffectLayer& m_layer;
    PaintContext& m_context;
    EffectPlacement m_place;
    QRectF m_reach;   ///< of the picture
    QRectF m_exposed; ///< of the device
    QPointF m_anchor; ///< whole pixels
    QPointF m_shift;  ///< to the nearest part of a pixel that pictures are made for
    double m_shrink = 1;
    bool m_masks = false;
    bool m_isWhole = false;
};

bool SoftSilhouette::isSeen()
{
    const double x = 3 * m_place.deviationX + 1, y = 3 * m_place.deviationY + 1;
    m_reach = m_place.painted.translated(m_place.offset).adjusted(-x, -y, x, y);
    m_exposed = m_context.exposedPixels();
    return isFinite(m_reach) && isFinite(m_exposed) && m_reach.intersects(m_exposed);
}

void SoftSilhouette::chooseSize()
{
    const double deviation = std::min(m_place.deviationX, m_place.deviationY);
    const double fine =
        m_context.options().quality >= 2 ? kFineDeviation : kFineDeviationAtLowQuality;
    // What is not drawn on pixels may be enlarged later.
    while (!m_context.isOnPixels() && deviation > 0 && deviation / m_shrink < fine / 2)
        m_shrink /= 2;
    while (deviation / m_shrink > fine ||
           area(m_reach & m_exposed) > kMostPixels * m_shrink * m_shrink)
        m_shrink *= 2;
}

void SoftSilhouette::chooseAnchor()
{
    const double shrink = m_masks ? std::min(m_shrink, 1.0) : m_shrink;
    m_isWhole = area(m_reach) <= kKeptPixels * shrink * shrink;
    const QPointF corner = m_isWhole ? m_place.painted.topLeft() : m_exposed.topLeft();
    m_anchor = QPointF(std::floor(corner.x()), std::floor(corner.y()));
    if (!m_isWhole || m_node.drawStyle().isPixelAligned())
        return;
    const double phases = m_masks ? kMaskPhases : kPhases;
    const QPointF phase = corner - m_anchor;
    m_shift =
        QPointF(std::round(phase.x() * phases), std::round(phase.y() * phases)) / phases - phase;
}

void SoftSilhouette::paint()
{
    if (!isSeen())
        return;
    m_masks = m_layer.masksNode && m_context.isOnPixels() &&
              !(m_node.hidesItsSilhouette() && m_context.opacity() >= 1);
    chooseSize();
    chooseAnchor();
    const Picture found = picture();
    if (found.image.isNull())
        return;
    const double shrink = m_masks ? 1 : m_shrink;
    QPainter& painter = m_context.pixelPainter();
    if (shrink == 1) {
        painter.drawImage(m_anchor + found.corner, found.image);
        return;
    }
    // Not beyond the reach, which enlarged pixels are too coarse for.
    const QPointF corner = QPointF(found.corner) * shrink + m_anchor - m_shift;
    const QRectF part = QRectF(corner, QSizeF(found.image.size()) * shrink) & m_reach;
    painter.drawImage(part, found.image,
                      QRectF((part.topLeft() - corner) / shrink, part.size() / shrink));
}

SoftSilhouette::Picture SoftSilhouette::picture() const
{
    if (!m_isWhole)
        return made();
    EffectCache& cache = EffectCache::instance();
    const QByteArray silhouette = m_node.silhouetteKey();
    const QByteArray key = this->key(silhouette);
    const QPoint corner = pictureArea(m_masks ? 1 : m_shrink).topLeft();
    if (const QImage image = cache.find(key); !image.isNull())
        return {image, corner};
    const auto forgotten = cache.forgotten();
    Picture result = made();
    Q_ASSERT(result.image.isNull() || result.corner == corner);
    // A host's painter may have changed its node: the picture is good for this paint only.
    if (forgotten == cache.forgotten()) {
        cache.keep(key, result.image, silhouette.isEmpty() ? &m_node : nullptr);
        if (silhouette.isEmpty())
            m_node.noteEffectPicture();
    }
    return result;
}

SoftSilhouette::Picture SoftSilhouette::made() const
{
    const Picture result = soft();
    return m_masks && !result.image.isNull() ? masked(result) : result;
}

QRect SoftSilhouette::pictureArea(double shrink) const
{
    const QRectF shown = m_isWhole ? m_reach : m_reach & m_exposed;
    return divided(relative(shown), shrink).toAlignedRect();
}

SoftSilhouette::Picture SoftSilhouette::soft() const
{
    const double x = m_place.deviationX / m_shrink, y = m_place.deviationY / m_shrink;
    const QRect shown = pictureArea(m_shrink);
    const QRect reach = shown.marginsAdded(
        QMargins(static_cast<int>(std::ceil(3 * x)), static_cast<int>(std::ceil(3 * y)),
                 static_cast<int>(std::ceil(3 * x)), static_cast<int>(std::ceil(3 * y))));
    const QRectF silhouette =
        divided(relative(m_place.painted.translated(m_place.offset)), m_shrink);
    const QRect source = (silhouette & QRectF(reach)).toAlignedRect();
    if (source.isEmpty())
        return {};
    const QPointF shift = m_shift - m_anchor + m_place.offset;
    const QImage sheet = silhouetteSheet(m_node, m_context,
                                         QTransform::fromTranslate(shift.x(), shift.y()) *
                                             QTransform::fromScale(1 / m_shrink, 1 / m_shrink),
                                         source);
    const QRect all = shown.united(source);
    CoveragePlane plane(all.size());
    plane.put(sheet, source.topLeft() - all.topLeft());
    plane.blur(x, y);
    return {plane.colored(m_layer.color, m_layer.gain).copy(shown.translated(-all.topLeft())),
            shown.topLeft()};
}

SoftSilhouette::Picture SoftSilhouette::masked(const Picture& soft) const
{
    Picture result = soft;
    if (m_shrink != 1) {
        const QRect shown = pictureArea(1);
        result = {QImage(shown.size(), QImage::Format_ARGB32_Premultiplied), shown.topLeft()};
        if (result.image.isNull())
            return result;
        result.image.fill(Qt::transparent);
        QPainter painter(&result.image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(QPointF(soft.corner) * m_shrink - shown.topLeft(),
                                 QSizeF(soft.image.size()) * m_shrink),
                          soft.image);
    }
    punchOut(result);
    return result;
}

void SoftSilhouette::punchOut(Picture& picture) const
{
    const QRect hole =
        relative(m_place.painted).toAlignedRect() & QRect(picture.corner, picture.image.size());
    if (hole.isEmpty())
        return;
    const QPointF shift = m_shift - m_anchor;
    const QImage sheet =
        silhouetteSheet(m_node, m_context, QTransform::fromTranslate(shift.x(), shift.y()), hole);
    QPainter painter(&picture.image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.drawImage(hole.topLeft() - picture.corner, sheet);
}

QByteArray SoftSilhouette::key(const QByteArray& silhouette) const
{
    const QTransform& t = m_place.toPixels;
    const QPointF phase = relative(m_place.painted).topLeft();
    SilhouetteKey key;
    key.add(m_node.typeName(), t.m11(), t.m12(), t.m21(), t.m22());
    key.add(std::round(phase.x() * 4096), std::round(phase.y() * 4096),
            m_context.options().viewScale);
    key.add(m_context.options().quality, m_place.offset.x(), m_place.offset.y());
    key.add(m_place.deviationX, m_place.deviationY, m_layer.gain, m_layer.color.rgba(), m_shrink);
    key.add(m_masks);
    if (silhouette.isEmpty())
        key << &m_node;
    return key.bytes() + silhouette;
}

} // namespace

void paintSoftSilhouette(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    SoftSilhouette(node, layer, context).paint();
}

} // namespace Tova2
