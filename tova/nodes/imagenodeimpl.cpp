#include "nodes/imagenodeimpl.h"

#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>

namespace Tova2 {

namespace {

/// Where `part` of `whole` lies when all of `whole` fills `target`.
QRectF placeOf(const QRectF& part, const QRectF& whole, const QRectF& target)
{
    const double sx = target.width() / whole.width();
    const double sy = target.height() / whole.height();
    return {target.x() + (part.x() - whole.x()) * sx, target.y() + (part.y() - whole.y()) * sy,
            part.width() * sx, part.height() * sy};
}

} // namespace

void ImageNodeImpl::setSource(const Source& source)
{
    if (source == m_source)
        return;
    m_source = source;
    m_defaultSize = {};
    reportChange(ChangeLevel::Geometry);
}

QSize ImageNodeImpl::naturalSize() const
{
    return m_source && !m_source->isNull() ? Vetra::toQt(m_source->naturalSize()) : QSize(0, 0);
}

QSizeF ImageNodeImpl::size() const
{
    if (m_size.isValid())
        return m_size;
    if (!m_defaultSize.isValid()) {
        const QSizeF natural = naturalSize();
        if (natural.isEmpty())
            return {0, 0};
        m_defaultSize = natural;
    }
    return m_defaultSize;
}

void ImageNodeImpl::setSize(const QSizeF& size)
{
    const bool isAcceptable = size.isValid() && isFinite(QPointF(size.width(), size.height()));
    const QRectF extent(QPointF(), size);
    if (!isAcceptable || (m_size.isValid() && isSame(extent, QRectF(QPointF(), m_size))))
        return;
    m_size = size;
    reportChange(ChangeLevel::Geometry);
}

void ImageNodeImpl::setViewBox(const QRectF& box)
{
    if (!isFinite(box) || isSame(box, m_viewBox))
        return;
    m_viewBox = box;
    reportChange(ChangeLevel::Geometry);
}

void ImageNodeImpl::paintNode(PaintContext& context) const
{
    const QRectF target = geometryRect();
    const QRectF whole(QPointF(), naturalSize());
    const QRectF shown = m_viewBox.isEmpty() ? whole : m_viewBox;
    // What the toolkit draws from beyond an image's edges is not transparent.
    const QRectF part = shown & whole;
    if (part.isEmpty() || target.isEmpty())
        return;
    QPainter& painter = context.picturePainter(drawStyle().isAntiAliased());
    // A few pixels show nothing of the picture but its colours, however they are picked.
    const double pixels = std::max(target.width(), target.height()) * context.pixelsAUnit();
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          !(pixels < context.simplification().figures));
    Vetra::paint(painter, *m_source, Vetra::fromQt(placeOf(part, shown, target)),
                 Vetra::fromQt(part));
    context.forgetPainterState();
}

} // namespace Tova2
