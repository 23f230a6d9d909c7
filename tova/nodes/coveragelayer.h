#pragma once

#include <QImage>
#include <QLineF>
#include <QRectF>

namespace Tova2 {

/// A transparent sheet on which boxes and thin lines are drawn by the exact share of each pixel
/// that they cover, many times faster than a general scan converter is. What lies on it is put
/// over a picture as one image, which comes to the same as drawing it there piece by piece.
class CoverageLayer {
public:
    /// In the device's own pixels.
    explicit CoverageLayer(const QRect& area);

    // Colours are premultiplied.
    void fill(const QRectF& box, QRgb color);
    /// Level and upright lines are boxes; for others the width is taken across the main direction.
    void draw(const QLineF& line, double width, QRgb color);

    bool isNull() const { return m_image.isNull(); }
    const QImage& image() const { return m_image; }
    QImage& image() { return m_image; }
    QPoint corner() const { return m_area.topLeft(); }

private:
    void drawSlanted(const QLineF& line, double width, QRgb color, bool isSwapped);
    QRgb* row(int y) { return reinterpret_cast<QRgb*>(m_bits + y * m_stride); }

    QRect m_area;
    QImage m_image;
    uchar* m_bits = nullptr;
    std::ptrdiff_t m_stride = 0;
};

} // namespace Tova2
