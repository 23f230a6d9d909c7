#pragma once

#include <QLineF>
#include <QRect>
#include <QRgb>

#include <cstddef>
#include <optional>

class QImage;
class QPainter;
class QPoint;
class QRectF;

namespace Tova2 {

/// Pixels of 32 bits, premultiplied, that are drawn on without a painter: boxes and thin lines by
/// the exact share of each pixel that they cover, many times faster than a general scan converter
/// does. Places are in the device's own pixels; what lies outside `rect` stays.
///
/// Owns nothing: the picture has to outlive it.
class PixelArea {
public:
    PixelArea() = default; ///< of no pixels
    /// Of an image whose pixel (0, 0) lies at `corner`.
    PixelArea(QImage& image, const QPoint& corner);

    /// The part within `clip` of the image that a painter paints on, as far as it may; none when it
    /// paints on anything else, or in another format.
    static std::optional<PixelArea> under(const QPainter& painter, const QRect& clip);

    const QRect& rect() const { return m_rect; }

    // Colours are premultiplied.
    void fill(const QRectF& box, QRgb color);
    /// Level and upright lines are boxes; for others the width is taken across the main direction.
    void draw(const QLineF& line, double width, QRgb color);
    /// All or nothing of each pixel whose middle is nearest. A line that goes on leaves its last
    /// pixel to the next one.
    void drawSharp(const QLineF& line, QRgb color, bool goesOn);

private:
    struct Span;
    struct Ink;

    QRgb* row(int y) const
    {
        return reinterpret_cast<QRgb*>(m_first +
                                       static_cast<std::ptrdiff_t>(y - m_rect.top()) * m_stride) -
               m_rect.left();
    }
    void fillRow(int y, const Span& across, QRgb color, unsigned share);
    void fillRows(int y, int end, const Span& across, QRgb color);
    void drawSlanted(const QLineF& line, double width, QRgb color, bool isSwapped);

    QRect m_rect;
    unsigned char* m_first = nullptr; ///< of the rectangle
    std::ptrdiff_t m_stride = 0;
    QRgb m_solid = 0; ///< bits that are set in every pixel: the alpha of what has none
};

} // namespace Tova2
