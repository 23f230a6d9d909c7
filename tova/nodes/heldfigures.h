#pragma once

#include <QLineF>
#include <QRectF>

#include <vector>

class QPainter;

namespace Tova2 {

/// Boxes and thin lines that follow each other in stacking order, in the device's own pixels, kept
/// in order to be drawn together: on a layer of their own where they are many for the area that
/// they take, else one by one.
class HeldFigures {
public:
    /// Nothing outside `area` is seen.
    void setArea(const QRect& area) { m_area = area; }

    void add(const QRectF& box, QRgb color);
    void add(const QLineF& line, double width, QRgb color);
    bool isEmpty() const { return m_figures.empty(); }
    bool isFull() const { return m_figures.size() >= kMost; }
    /// Leaves the painter with another transform, pen, brush, opacity and antialiasing.
    void draw(QPainter& painter, double pixelRatio);

private:
    static constexpr std::size_t kMost = 1 << 15;

    struct Figure {
        QLineF line;      ///< of a box, its diagonal
        double width = 0; ///< 0: a box
        QRgb color;       ///< premultiplied
    };

    void widen(const QRectF& rect);
    void drawOnLayer(QPainter& painter, double pixelRatio, const QRect& reach) const;
    void drawSingly(QPainter& painter) const;

    std::vector<Figure> m_figures;
    QRectF m_reach;
    QRect m_area;
};

} // namespace Tova2
