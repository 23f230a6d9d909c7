#pragma once

#include <QPoint>
#include <QRgb>
#include <QSize>

#include <array>
#include <vector>

class QColor;
class QImage;

namespace Tova2 {

/// Of a normal distribution that is cut off at three deviations: the weight of the middle pixel and
/// of those to either side. `deviation` is in pixels.
std::vector<float> softeningKernel(double deviation);

/// The colours of coverages from 0 to 1, premultiplied.
class Shades {
public:
    Shades(const QColor& color, double gain);
    QRgb at(float coverage) const
    {
        const float full = coverage * m_gain < 1 ? coverage * m_gain : 1;
        return m_shades[static_cast<std::size_t>(full * m_most + 0.5f)];
    }

private:
    float m_gain, m_most;
    std::array<QRgb, 256> m_shades;
};

/// How much of each pixel a silhouette covers, from 0 to 1; fine enough to be multiplied by a gain
/// without showing steps.
class CoveragePlane {
public:
    explicit CoveragePlane(const QSize& size);

    /// From the alpha of a premultiplied picture, which lies inside the plane.
    void put(const QImage& sheet, const QPoint& corner);
    void blur(double deviationX, double deviationY);
    /// Premultiplied.
    QImage colored(const QColor& color, double gain) const;

private:
    void blurRows(double deviation);
    void blurColumns(double deviation);
    float* row(int y) { return m_values.data() + static_cast<std::size_t>(y) * m_width; }
    const float* row(int y) const
    {
        return m_values.data() + static_cast<std::size_t>(y) * m_width;
    }

    std::size_t m_width;
    int m_height;
    std::vector<float> m_values;
};

} // namespace Tova2
