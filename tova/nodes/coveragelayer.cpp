#include "nodes/coveragelayer.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

/// Coverage in 256ths of what a span of pixels has of [first, last]. The pixels in between are
/// covered whole.
struct Span {
    int first = 0, last = -1; ///< pixels; none when the last is before the first
    unsigned atFirst = 0, atLast = 0;

    Span(double from, double to, int limit)
    {
        from = std::max(from, 0.0);
        to = std::min(to, static_cast<double>(limit));
        if (!(from < to))
            return;
        first = static_cast<int>(from);
        last = static_cast<int>(std::ceil(to)) - 1;
        const double head = std::min(to, first + 1.0) - from;
        atFirst = share(head);
        atLast = last == first ? atFirst : share(to - last);
    }
    unsigned at(int pixel) const { return pixel == first ? atFirst : pixel == last ? atLast : 256; }

private:
    static unsigned share(double part) { return static_cast<unsigned>(part * 256 + 0.5); }
};

/// Two channels at a time.
QRgb scaled(QRgb color, unsigned share)
{
    const QRgb even = ((color & 0xff00ff) * share >> 8) & 0xff00ff;
    const QRgb odd = ((color >> 8 & 0xff00ff) * share) & 0xff00ff00;
    return even | odd;
}

/// A colour at a coverage, ready to be put over pixels.
struct Ink {
    QRgb over;
    unsigned rest; ///< what is left of a pixel: 256 under nothing, 0 under an opaque colour

    Ink(QRgb color, unsigned share) : over(share == 256 ? color : scaled(color, share))
    {
        const unsigned alpha = over >> 24;
        rest = 255 - alpha + (alpha < 128);
    }
    void put(QRgb& pixel) const { pixel = over + scaled(pixel, rest); }
};

} // namespace

CoverageLayer::CoverageLayer(const QRect& area)
    : m_area(area), m_image(area.size(), QImage::Format_ARGB32_Premultiplied)
{
    if (m_image.isNull())
        return;
    m_image.fill(Qt::transparent);
    m_bits = m_image.bits();
    m_stride = m_image.bytesPerLine();
}

void CoverageLayer::fill(const QRectF& box, QRgb color)
{
    const Span across(box.left() - m_area.left(), box.right() - m_area.left(), m_area.width());
    const Span down(box.top() - m_area.top(), box.bottom() - m_area.top(), m_area.height());
    if (across.last < across.first)
        return;
    for (int y = down.first; y <= down.last; ++y) {
        QRgb* const pixels = row(y);
        const unsigned share = down.at(y);
        Ink(color, across.atFirst * share >> 8).put(pixels[across.first]);
        const Ink ink(color, share);
        for (int x = across.first + 1; x < across.last; ++x)
            ink.put(pixels[x]);
        if (across.last > across.first)
            Ink(color, across.atLast * share >> 8).put(pixels[across.last]);
    }
}

void CoverageLayer::draw(const QLineF& line, double width, QRgb color)
{
    const double dx = std::abs(line.dx()), dy = std::abs(line.dy()), half = width / 2;
    if (dx == 0 || dy == 0) {
        const QRectF along = QRectF(line.p1(), line.p2()).normalized();
        fill(dx == 0 ? along.adjusted(-half, 0, half, 0) : along.adjusted(0, -half, 0, half),
             color);
        return;
    }
    const QPointF origin = m_area.topLeft();
    QLineF local = line.translated(-origin);
    const bool isSteep = dy > dx;
    if (isSteep)
        local = QLineF(local.y1(), local.x1(), local.y2(), local.x2());
    if (local.x1() > local.x2())
        local = QLineF(local.p2(), local.p1());
    drawSlanted(local, width * std::hypot(dx, dy) / std::max(dx, dy), color, isSteep);
}

// One step along a pixel, the line's extent across it spread over those that it touches.
void CoverageLayer::drawSlanted(const QLineF& line, double width, QRgb color, bool isSwapped)
{
    const int alongLimit = isSwapped ? m_area.height() : m_area.width();
    const int acrossLimit = isSwapped ? m_area.width() : m_area.height();
    const double slope = line.dy() / line.dx();
    const Span along(line.x1(), line.x2(), alongLimit);
    for (int step = along.first; step <= along.last; ++step) {
        const double middle = line.y1() + (step + 0.5 - line.x1()) * slope;
        const Span across(middle - width / 2, middle + width / 2, acrossLimit);
        for (int at = across.first; at <= across.last; ++at) {
            QRgb& pixel = isSwapped ? row(step)[at] : row(at)[step];
            Ink(color, along.at(step) * across.at(at) >> 8).put(pixel);
        }
    }
}

} // namespace Tova2
