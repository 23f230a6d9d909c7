#include "nodes/paintcontext.h"

#include "vetra/qt.h"

#include <QLineF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

void PaintContext::drawFade(const QPointF& clear, const QPointF& full, const QPointF& end)
{
    const double length = QLineF(clear, full).length();
    if (m_stroke.isNoStroke() || !(length > 0))
        return;
    const double scale = m_options.viewScale;
    // As the toolkit draws lines: a pixel wide at least.
    const double width =
        std::max(m_stroke.logicalWidth() == 0 ? 0.0 : m_stroke.width(scale), 1 / scale);
    const QPointF shift = m_isMovedOnly ? m_offset : QPointF();
    QPainter& painter = m_isMovedOnly ? viewPainter() : localPainter();
    const QColor colour = Vetra::toQt(m_stroke.color());
    QColor none = colour;
    none.setAlpha(0);
    // The same stops for all marks of a colour: the toolkit keeps their table.
    QLinearGradient fade(clear + shift, full + shift);
    fade.setColorAt(0, none);
    fade.setColorAt(1, colour);
    const QPointF aside =
        QPointF(full.y() - clear.y(), clear.x() - full.x()) * (width / 2 / length);
    const QPointF from = clear + shift, to = end + shift;
    if (aside.x() == 0 || aside.y() == 0) {
        painter.fillRect(QRectF(from + aside, to - aside).normalized(), fade);
        return;
    }
    const QPointF corners[] = {from + aside, to + aside, to - aside, from - aside};
    painter.setPen(Qt::NoPen);
    painter.setBrush(fade);
    painter.drawConvexPolygon(corners, 4);
    m_isFrameSet = m_arePenAndBrushSet = false;
}

} // namespace Tova2
