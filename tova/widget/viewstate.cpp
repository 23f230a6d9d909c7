#include "widget/viewstate.h"

#include "nodes/values.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

bool isScale(double scale)
{
    return scale > 0 && std::isfinite(scale);
}

bool isExtent(const QSizeF& size)
{
    return size.width() >= 0 && size.height() >= 0 && std::isfinite(size.width()) &&
           std::isfinite(size.height());
}

/// The smaller scale of the two axes; an axis without extent does not count.
double fittingScale(const QSizeF& content, const QSizeF& room)
{
    const double x = content.width() > 0 ? room.width() / content.width() : HUGE_VAL;
    const double y = content.height() > 0 ? room.height() / content.height() : HUGE_VAL;
    return std::min(x, y);
}

/// Within [low, high], or no farther from it than `from` is.
double softClamp(double value, double from, double low, double high)
{
    return std::clamp(value, std::min(low, from), std::max(high, from));
}

/// The least move of the range [shown, shown + room] that brings [at, at + extent] into it.
double revealing(double shown, double room, double at, double extent)
{
    if (at < shown || extent > room)
        return at - shown;
    return std::max(0.0, at + extent - (shown + room));
}

} // namespace

bool ViewState::setMaximumScale(double scale)
{
    if (!isScale(scale) || scale == m_maximumScale)
        return false;
    m_maximumScale = scale;
    return true;
}

bool ViewState::setOrigin(const QPointF& scenePoint)
{
    if (!isFinite(scenePoint) || isSame(scenePoint, m_origin))
        return false;
    m_origin = scenePoint;
    return true;
}

bool ViewState::setSize(const QSizeF& size)
{
    if (!isExtent(size) || (size.width() == m_size.width() && size.height() == m_size.height()))
        return false;
    m_size = size;
    return true;
}

bool ViewState::setMargins(const QMarginsF& margins)
{
    const QRectF edges(QPointF(margins.left(), margins.top()),
                       QPointF(margins.right(), margins.bottom()));
    if (!isFinite(edges) || margins == m_margins)
        return false;
    m_margins = margins;
    return true;
}

bool ViewState::setPreferredExtents(const QSizeF& extents)
{
    if (!isExtent(extents) || extents == m_preferredExtents)
        return false;
    m_preferredExtents = extents;
    return true;
}

double ViewState::preferredScale() const
{
    const double scale = fittingScale(m_preferredExtents, m_size);
    return isScale(scale) ? scale : 0;
}

QTransform ViewState::transform() const
{
    return {m_scale, 0, 0, m_scale, -m_origin.x() * m_scale, -m_origin.y() * m_scale};
}

bool ViewState::scaleAbout(double scale, const QPointF& scenePoint)
{
    return place(scenePoint, toView(scenePoint), scale);
}

bool ViewState::place(const QPointF& scenePoint, const QPointF& viewPoint, double scale)
{
    if (!isScale(scale))
        return false;
    const QPointF origin = scenePoint - QPointF(viewPoint.x() / scale, viewPoint.y() / scale);
    if (!isFinite(origin) || (scale == m_scale && isSame(origin, m_origin)))
        return false;
    m_scale = scale;
    m_origin = origin;
    return true;
}

bool ViewState::fit(const QRectF& sceneRect, const QRectF& viewRect)
{
    if (!isFinite(sceneRect) || !isFinite(viewRect) || viewRect.isEmpty())
        return false;
    return place(sceneRect.center(), viewRect.center(),
                 fittingScale(sceneRect.size(), viewRect.size()));
}

bool ViewState::reveal(const QRectF& sceneRect)
{
    if (!isFinite(sceneRect))
        return false;
    const QRectF r = sceneRect.normalized(), now = shown();
    return setOrigin(m_origin + QPointF(revealing(now.x(), now.width(), r.x(), r.width()),
                                        revealing(now.y(), now.height(), r.y(), r.height())));
}

bool ViewState::moveBy(QPointF sceneOffset, const QRectF& limits)
{
    const QPointF from = shown().center();
    QPointF to = from + sceneOffset;
    if (!isFinite(to))
        return false;
    if (!limits.isNull()) {
        to = {softClamp(to.x(), from.x(), limits.left(), limits.right()),
              softClamp(to.y(), from.y(), limits.top(), limits.bottom())};
        // An offset that is not cut must not change by the rounding of the middle.
        if (to.x() != from.x() + sceneOffset.x())
            sceneOffset.setX(to.x() - from.x());
        if (to.y() != from.y() + sceneOffset.y())
            sceneOffset.setY(to.y() - from.y());
    }
    return setOrigin(m_origin + sceneOffset);
}

QRectF ViewState::withMargins(const QRectF& sceneRect) const
{
    return {sceneRect.topLeft() - inScene(QPointF(m_margins.left(), m_margins.top())),
            sceneRect.bottomRight() + inScene(QPointF(m_margins.right(), m_margins.bottom()))};
}

QRectF ViewState::roomWithinMargins() const
{
    return QRectF(QPointF(), m_size).marginsRemoved(m_margins);
}

double ViewState::longerSideScale(const QRectF& sceneRect) const
{
    return sceneRect.width() <= sceneRect.height() ? m_size.height() / sceneRect.height()
                                                   : m_size.width() / sceneRect.width();
}

double ViewState::wholeScale(const QRectF& sceneRect) const
{
    const QRectF room = roomWithinMargins();
    return room.isEmpty() ? 0 : fittingScale(sceneRect.size(), room.size());
}

} // namespace Tova2
