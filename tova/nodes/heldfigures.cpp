#include "nodes/heldfigures.h"

#include "nodes/pixelarea.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

/// To put as many pixels of a layer over the picture takes the time that the toolkit needs for one
/// figure.
constexpr double kPixelsAFigure = 500;

QRectF boxOf(const QLineF& diagonal)
{
    return {diagonal.p1(), diagonal.p2()};
}

} // namespace

void HeldFigures::add(const QRectF& box, QRgb color)
{
    m_figures.push_back({QLineF(box.topLeft(), box.bottomRight()), 0, color});
    widen(box);
}

void HeldFigures::add(const QLineF& line, double width, QRgb color)
{
    m_figures.push_back({line, width, color});
    widen(QRectF(line.p1(), line.p2()).normalized().adjusted(-width, -width, width, width));
}

void HeldFigures::widen(const QRectF& rect)
{
    if (m_figures.size() == 1) {
        m_reach = rect;
        return;
    }
    m_reach.setCoords(std::min(m_reach.left(), rect.left()), std::min(m_reach.top(), rect.top()),
                      std::max(m_reach.right(), rect.right()),
                      std::max(m_reach.bottom(), rect.bottom()));
}

void HeldFigures::draw(QPainter& painter, double pixelRatio)
{
    const QRect reach = m_reach.intersected(m_area).toAlignedRect();
    painter.setOpacity(1);
    const double pixels = static_cast<double>(reach.width()) * reach.height();
    if (pixels < kPixelsAFigure * static_cast<double>(m_figures.size())) {
        painter.setWorldTransform(QTransform());
        drawOnLayer(painter, pixelRatio, reach);
    } else {
        painter.setWorldTransform(QTransform::fromScale(1 / pixelRatio, 1 / pixelRatio));
        drawSingly(painter);
    }
    m_figures.clear();
}

void HeldFigures::drawOnLayer(QPainter& painter, double pixelRatio, const QRect& reach) const
{
    if (reach.isEmpty())
        return;
    QImage layer(reach.size(), QImage::Format_ARGB32_Premultiplied);
    if (layer.isNull())
        return;
    layer.fill(Qt::transparent);
    PixelArea pixels(layer, reach.topLeft());
    for (const Figure& figure : m_figures) {
        if (figure.width > 0)
            pixels.draw(figure.line, figure.width, figure.color);
        else
            pixels.fill(boxOf(figure.line), figure.color);
    }
    layer.setDevicePixelRatio(pixelRatio);
    painter.drawImage(QPointF(reach.topLeft()) / pixelRatio, layer);
}

void HeldFigures::drawSingly(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Figure& figure : m_figures) {
        const QColor color = QColor::fromRgba(qUnpremultiply(figure.color));
        if (!(figure.width > 0)) {
            painter.fillRect(boxOf(figure.line), color);
            continue;
        }
        painter.setPen(QPen(color, figure.width, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(figure.line);
    }
}

} // namespace Tova2
