#include "gauge.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

void GaugePainter::setValue(double value)
{
    if (!(value >= 0 && value <= 1) || value == m_value)
        return;
    m_value = value;
    if (auto node = getNode(); node.isValid())
        node.repaintRequired(); // other pixels in the same bounds
}

void GaugePainter::setRadius(double radius)
{
    if (!(radius > 0) || !std::isfinite(radius) || radius == m_radius)
        return;
    boundsChanging(); // while the old bounds are still known
    m_radius = radius;
}

Vetra::GLRect<double> GaugePainter::getBoundingRect(double) const
{
    return {-m_radius, -m_radius, 2 * m_radius, 2 * m_radius};
}

// Corners of the rectangle are not hit.
Tova2::Bounds GaugePainter::getOutlineStroked(double scale) const
{
    return Tova2::Bounds(Tova2::Ellipse(getBoundingRect(scale)));
}

void GaugePainter::paint(QPainter* painter, double, const Vetra::GLRect<double>& target,
                         const Tova2::PaintOptions& options)
{
    const double width = target.width / 8;
    const QRectF ring(target.x + width / 2, target.y + width / 2, target.width - width,
                      target.height - width);
    const QColor ink = painter->pen().color(); // of the node's style
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(QColor(0, 0, 0, 30), width));
    painter->drawEllipse(ring);
    painter->setPen(QPen(ink, width, Qt::SolidLine, Qt::FlatCap));
    painter->drawArc(ring, 90 * 16, -static_cast<int>(m_value * 360 * 16));
    if (options.quality == 0)
        return; // too small to be read
    QFont font;
    font.setPointSizeF(target.height / 5);
    painter->setFont(font);
    painter->setPen(ink);
    painter->drawText(ring, Qt::AlignCenter, QString::number(std::lround(100 * m_value)));
}
