#include "nodes/pixelarea.h"

#include "nodes/values.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRectF>

#include <algorithm>
#include <cmath>

// Coverage is exact for boxes: their sides' shares of the first and last pixel across and down are
// multiplied. A slanted line is walked along its main direction, pixel by pixel, with its extent
// across spread over the pixels that it touches there. All of it is in 256ths, and a colour is
// scaled two channels at a time, so that a pixel costs some ten operations, without edge lists or
// spans to be kept.

namespace Tova2 {

namespace {

/// Two channels at a time.
QRgb scaled(QRgb color, unsigned share)
{
    const QRgb even = ((color & 0xff00ff) * share >> 8) & 0xff00ff;
    const QRgb odd = ((color >> 8 & 0xff00ff) * share) & 0xff00ff00;
    return even | odd;
}

/// What is left of a pixel under a premultiplied one: 256 under nothing, 0 under an opaque one.
unsigned restUnder(QRgb over)
{
    const unsigned alpha = over >> 24;
    return 256 - alpha - (alpha >> 7);
}

bool isPremultiplied(QImage::Format format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

/// Beyond rounding, so that a line of 45 degrees is the same wherever it lies.
bool isSteeper(double dy, double dx)
{
    return dy > dx * (1 + 1e-6);
}

} // namespace

/// Coverage in 256ths of what a span of pixels has of [from, to]. The pixels in between are covered
/// whole.
struct PixelArea::Span {
    int first = 0, last = -1; ///< pixels; none when the last is before the first
    unsigned atFirst = 0, atLast = 0;

    Span(double from, double to, int least, int most)
    {
        from = std::max(from, static_cast<double>(least));
        to = std::min(to, most + 1.0);
        if (!(from < to))
            return;
        first = static_cast<int>(std::floor(from));
        last = static_cast<int>(std::ceil(to)) - 1;
        const double head = std::min(to, first + 1.0) - from;
        atFirst = share(head);
        atLast = last == first ? atFirst : share(to - last);
    }
    bool isEmpty() const { return last < first; }
    unsigned at(int pixel) const { return pixel == first ? atFirst : pixel == last ? atLast : 256; }

private:
    static unsigned share(double part) { return static_cast<unsigned>(part * 256 + 0.5); }
};

/// A colour at a coverage, ready to be put over pixels.
struct PixelArea::Ink {
    QRgb over, solid;
    unsigned rest;

    Ink(QRgb color, unsigned share, QRgb solidBits)
        : over(share == 256 ? color : scaled(color, share)), solid(solidBits), rest(restUnder(over))
    {}
    void put(QRgb& pixel) const { pixel = (over + scaled(pixel, rest)) | solid; }
    void put(QRgb* pixels, int count) const
    {
        if (rest == 0)
            return static_cast<void>(std::fill_n(pixels, std::max(count, 0), over));
        for (int i = 0; i < count; ++i)
            put(pixels[i]);
    }
};

PixelArea::PixelArea(QImage& image, const QPoint& corner)
    : m_rect(corner, image.size())
    , m_first(image.bits())
    , m_stride(image.bytesPerLine())
    , m_solid(image.format() == QImage::Format_RGB32 ? 0xff000000 : 0)
{}

std::optional<PixelArea> PixelArea::under(const QPainter& painter, const QRect& clip)
{
    if (painter.device()->devType() != QInternal::Image ||
        painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return {};
    auto& image = static_cast<QImage&>(*painter.device());
    if (!isPremultiplied(image.format()))
        return {};
    QRect rect = clip & image.rect();
    if (const QRegion system = painter.paintEngine()->systemClip(); !system.isEmpty()) {
        const QRegion left = system & rect;
        if (left.rectCount() > 1)
            return {};
        rect = left.boundingRect();
    }
    PixelArea area(image, {});
    area.m_first += static_cast<std::ptrdiff_t>(rect.top()) * area.m_stride +
                    static_cast<std::ptrdiff_t>(rect.left()) * std::ptrdiff_t(sizeof(QRgb));
    area.m_rect = rect;
    return area;
}

void PixelArea::fill(const QRectF& box, QRgb color)
{
    const Span across(box.left(), box.right(), m_rect.left(), m_rect.right());
    const Span down(box.top(), box.bottom(), m_rect.top(), m_rect.bottom());
    if (across.isEmpty() || down.isEmpty())
        return;
    fillRow(down.first, across, color, down.atFirst);
    fillRows(down.first + 1, down.last, across, color);
    if (down.last > down.first)
        fillRow(down.last, across, color, down.atLast);
}

void PixelArea::fillRow(int y, const Span& across, QRgb color, unsigned share)
{
    QRgb* const pixels = row(y);
    Ink(color, across.atFirst * share >> 8, m_solid).put(pixels[across.first]);
    Ink(color, share, m_solid).put(pixels + across.first + 1, across.last - across.first - 1);
    if (across.last > across.first)
        Ink(color, across.atLast * share >> 8, m_solid).put(pixels[across.last]);
}

/// Covered whole from above to below.
void PixelArea::fillRows(int y, int end, const Span& across, QRgb color)
{
    const Ink first(color, across.atFirst, m_solid), last(color, across.atLast, m_solid);
    const Ink whole(color, 256, m_solid);
    for (; y < end; ++y) {
        QRgb* const pixels = row(y);
        first.put(pixels[across.first]);
        whole.put(pixels + across.first + 1, across.last - across.first - 1);
        if (across.last > across.first)
            last.put(pixels[across.last]);
    }
}

void PixelArea::draw(const QLineF& line, double width, QRgb color)
{
    const double dx = std::abs(line.dx()), dy = std::abs(line.dy()), half = width / 2;
    if (dx == 0 || dy == 0) {
        const double left = std::min(line.x1(), line.x2()), top = std::min(line.y1(), line.y2());
        return fill(dx == 0 ? QRectF(left - half, top, width, dy)
                            : QRectF(left, top - half, dx, width),
                    color);
    }
    const bool isSteep = isSteeper(dy, dx);
    QLineF walked = isSteep ? QLineF(line.y1(), line.x1(), line.y2(), line.x2()) : line;
    if (walked.x1() > walked.x2())
        walked = QLineF(walked.p2(), walked.p1());
    drawSlanted(walked, width * std::hypot(dx, dy) / std::max(dx, dy), color, isSteep);
}

// Places are not measured from the area, lest its place be seen in the line's.
void PixelArea::drawSlanted(const QLineF& line, double width, QRgb color, bool isSwapped)
{
    const QRect limits =
        isSwapped ? QRect(m_rect.y(), m_rect.x(), m_rect.height(), m_rect.width()) : m_rect;
    const double slope = line.dy() / line.dx();
    const Span along(line.x1(), line.x2(), limits.left(), limits.right());
    for (int step = along.first; step <= along.last; ++step) {
        const double middle = line.y1() + (step + 0.5 - line.x1()) * slope;
        const Span across(middle - width / 2, middle + width / 2, limits.top(), limits.bottom());
        for (int at = across.first; at <= across.last; ++at) {
            QRgb& pixel = isSwapped ? row(step)[at] : row(at)[step];
            Ink(color, along.at(step) * across.at(at) >> 8, m_solid).put(pixel);
        }
    }
}

// Points are the middles of pixels, as for the toolkit's own lines.
void PixelArea::drawSharp(const QLineF& line, QRgb color, bool goesOn)
{
    const bool isSteep = isSteeper(std::abs(line.dy()), std::abs(line.dx()));
    const QLineF along = isSteep ? QLineF(line.y1(), line.x1(), line.y2(), line.x2()) : line;
    const QRect limits =
        isSteep ? QRect(m_rect.y(), m_rect.x(), m_rect.height(), m_rect.width()) : m_rect;
    double first = nearestPixel(along.x1()), last = nearestPixel(along.x2());
    if (goesOn && first == last)
        return;
    if (goesOn)
        last += first < last ? -1 : 1;
    const double slope = along.dx() == 0 ? 0 : along.dy() / along.dx();
    const Ink ink(color, 256, m_solid);
    const double end = std::min(std::max(first, last), static_cast<double>(limits.right()));
    for (double at = std::max(std::min(first, last), static_cast<double>(limits.left())); at <= end;
         ++at) {
        const double across = nearestPixel(along.y1() + (at - along.x1()) * slope);
        if (!(across >= limits.top() && across <= limits.bottom()))
            continue;
        const int x = static_cast<int>(at), y = static_cast<int>(across);
        ink.put(isSteep ? row(x)[y] : row(y)[x]);
    }
}

} // namespace Tova2
