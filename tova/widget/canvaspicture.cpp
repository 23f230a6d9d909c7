#include "widget/canvaspicture.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace Tova2 {

namespace {

// Finer than the toolkit's rasteriser, so that nobody sees it; coarse enough that the rounding of
// many small moves does not make a new picture each.
constexpr double kGrid = 256;
constexpr double kSamePhase = 0.75 / kGrid;
constexpr std::size_t kAlignment = 64; // bytes, of rows: that of the toolkit's vector code

double onGrid(double value)
{
    return std::round(value * kGrid) / kGrid;
}

QImage makePixels(const QSize& size)
{
    if (size.isEmpty())
        return {};
    const std::size_t stride =
        (static_cast<std::size_t>(size.width()) * 4 + kAlignment - 1) / kAlignment * kAlignment;
    const std::size_t bytes = stride * static_cast<std::size_t>(size.height());
    void* const memory = std::aligned_alloc(kAlignment, bytes);
    if (!memory)
        throw std::bad_alloc();
    std::memset(memory, 0xff, bytes);
    return {static_cast<uchar*>(memory), size.width(), size.height(), static_cast<int>(stride),
            QImage::Format_RGB32,        std::free,    memory};
}

void copyRows(const QImage& from, QImage& to)
{
    const int rows = std::min(from.height(), to.height());
    const auto bytes = static_cast<std::size_t>(std::min(from.width(), to.width())) * 4;
    for (int row = 0; row < rows; ++row)
        std::memcpy(to.scanLine(row), from.constScanLine(row), bytes);
}

/// Keeps painting within a part of an image without a trace of it at the part's edges. The toolkit
/// cuts lines off at the bounds of the clip, which shifts their pixels by a rounding; so the clip
/// gets the bounds of the whole image by two corners. The pixel of the first is put back
/// afterwards, that of the last is nobody's.
///
/// Device pixels are the unit of nobody but the paint engine; this is its own way to be told.
class PartClip {
public:
    PartClip(QImage& image, const QRect& part)
        : m_engine(image.paintEngine())
        , m_isFirstOurs(part.contains(0, 0))
        , m_first(*reinterpret_cast<QRgb*>(image.scanLine(0)))
        , m_before(m_first)
    {
        QRegion clip(part);
        clip += QRect(0, 0, 1, 1);
        clip += QRect(image.width() - 1, image.height() - 1, 1, 1);
        m_engine->setSystemClip(clip);
    }
    ~PartClip()
    {
        m_engine->setSystemClip({});
        if (!m_isFirstOurs)
            m_first = m_before;
    }
    PartClip(const PartClip&) = delete;
    PartClip& operator=(const PartClip&) = delete;

private:
    QPaintEngine* m_engine;
    bool m_isFirstOurs;
    QRgb& m_first;
    QRgb m_before;
};

class PixelRatio {
public:
    PixelRatio(QImage& image, double ratio) : m_image(image) { image.setDevicePixelRatio(ratio); }
    ~PixelRatio() { m_image.setDevicePixelRatio(1); }
    PixelRatio(const PixelRatio&) = delete;
    PixelRatio& operator=(const PixelRatio&) = delete;

private:
    QImage& m_image;
};

} // namespace

bool CanvasPicture::setSize(const QSize& wanted, double ratio)
{
    const QSize pixels = wanted.isEmpty() ? QSize(0, 0) : wanted;
    if (pixels == m_size && ratio == m_ratio)
        return false;
    const bool isOtherRatio = ratio != m_ratio;
    const QSize before = m_size;
    const auto due = m_due.rects();
    m_size = pixels;
    m_ratio = ratio;
    m_due.resize(pixels);
    if (isOtherRatio)
        return true;
    m_due.clear();
    for (const QRect& rect : due)
        m_due.mark(rect);
    m_due.mark(QRect(before.width(), 0, pixels.width(), pixels.height()));
    m_due.mark(QRect(0, before.height(), pixels.width(), pixels.height()));
    return true;
}

bool CanvasPicture::place(double scale, const QPointF& offset, bool keepsPhase)
{
    const QPointF delta = offset - m_offset;
    const QPointF whole(std::round(delta.x()), std::round(delta.y()));
    const double off = std::max(std::abs(delta.x() - whole.x()), std::abs(delta.y() - whole.y()));
    const bool isNear =
        std::abs(whole.x()) < m_size.width() && std::abs(whole.y()) < m_size.height();
    if (scale != m_scale || !isNear || (off > kSamePhase && !keepsPhase)) {
        m_scale = scale;
        m_offset = {onGrid(offset.x()), onGrid(offset.y())};
        m_shift = {};
        m_due.markAll();
        return true;
    }
    const QPoint shift = whole.toPoint();
    if (shift.isNull())
        return false;
    m_offset += whole;
    m_shift += shift;
    m_due.moveBy(shift);
    const QRect all(QPoint(), m_size);
    m_due.mark(
        QRect(shift.x() > 0 ? 0 : all.width() + shift.x(), 0, std::abs(shift.x()), all.height()));
    m_due.mark(
        QRect(0, shift.y() > 0 ? 0 : all.height() + shift.y(), all.width(), std::abs(shift.y())));
    return true;
}

QTransform CanvasPicture::transform() const
{
    return {m_scale, 0, 0, m_scale, m_offset.x() / m_ratio, m_offset.y() / m_ratio};
}

void CanvasPicture::mark(const QRectF& sceneRect)
{
    const double scale = m_scale * m_ratio;
    // A pixel for antialiasing, and one for soft pictures, which begin with a whole one.
    m_due.mark(QRectF(sceneRect.topLeft() * scale + m_offset, sceneRect.size() * scale)
                   .adjusted(-2, -2, 2, 2));
}

QRegion CanvasPicture::due() const
{
    QRegion region;
    if (!m_shift.isNull())
        return QRectF(QPointF(), QSizeF(m_size) / m_ratio).toAlignedRect();
    // Where a view pixel is no whole number of device pixels, the toolkit rounds the place of the
    // view, and the edges of what it shows of it.
    const int margin = m_ratio == std::floor(m_ratio) ? 0 : 1;
    for (const QRect& part : m_due.rects())
        region += inView(part).toAlignedRect().adjusted(-margin, -margin, margin, margin);
    return region;
}

QRectF CanvasPicture::inView(const QRect& part) const
{
    return {QPointF(part.topLeft()) / m_ratio, QSizeF(part.size()) / m_ratio};
}

void CanvasPicture::paintDue(const PaintPart& paint)
{
    adoptSize();
    copyShifted();
    const auto parts = m_due.rects();
    m_due.clear();
    for (const QRect& part : parts)
        paintPart(part, paint);
}

void CanvasPicture::adoptSize()
{
    const QSize size = m_size.isEmpty() ? m_size : m_size + QSize(1, 1);
    if (m_pixels.size() == size)
        return;
    QImage larger = makePixels(size);
    copyRows(m_pixels, larger);
    m_pixels = std::move(larger);
}

void CanvasPicture::copyShifted()
{
    const QPoint by = std::exchange(m_shift, {});
    const QRect all(QPoint(), m_size), to = all & all.translated(by);
    if (by.isNull() || to.isEmpty() || m_due.isAll())
        return;
    const QPoint from = to.topLeft() - by;
    const int stride = m_pixels.bytesPerLine();
    uchar* const bits = m_pixels.bits();
    const auto bytes = static_cast<std::size_t>(to.width()) * 4;
    // From the end that is not read any more.
    for (int i = 0; i < to.height(); ++i) {
        const int row = by.y() > 0 ? to.height() - 1 - i : i;
        std::memmove(bits + static_cast<std::ptrdiff_t>(to.y() + row) * stride + to.x() * 4,
                     bits + static_cast<std::ptrdiff_t>(from.y() + row) * stride + from.x() * 4,
                     bytes);
    }
}

void CanvasPicture::paintPart(const QRect& part, const PaintPart& paint)
{
    const PixelRatio ratio(m_pixels, m_ratio);
    const PartClip clip(m_pixels, part);
    QPainter painter(&m_pixels);
    paint(painter, inView(part));
}

} // namespace Tova2
