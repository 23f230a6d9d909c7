#include "nodes/effects/coverageplane.h"

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tova2 {

namespace {

constexpr double kLeastDeviation = 0.05; // below, a pixel's own width hides it

void addScaled(float* sum, const float* values, float factor, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        sum[i] += factor * values[i];
}

} // namespace

std::vector<float> softeningKernel(double deviation)
{
    if (!(deviation > kLeastDeviation))
        return {1};
    // No further: what is bounded by three deviations must not get there by a gain.
    const auto radius = static_cast<std::size_t>(3 * deviation);
    const auto below = [&](double x) {
        return 0.5 * (1 + std::erf(x / (deviation * std::numbers::sqrt2)));
    };
    std::vector<float> kernel(radius + 1);
    double sum = 0;
    for (std::size_t i = 0; i <= radius; ++i) {
        const auto at = static_cast<double>(i);
        kernel[i] = static_cast<float>(below(at + 0.5) - below(at - 0.5));
        sum += kernel[i] * (i == 0 ? 1 : 2);
    }
    for (float& weight : kernel)
        weight = static_cast<float>(weight / sum);
    return kernel;
}

Shades::Shades(const QColor& color, double gain)
    : m_gain(static_cast<float>(gain)), m_most(static_cast<float>(color.alpha()))
{
    for (int alpha = 0; alpha < 256; ++alpha)
        m_shades[static_cast<std::size_t>(alpha)] =
            qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha));
}

CoveragePlane::CoveragePlane(const QSize& size)
    : m_width(static_cast<std::size_t>(size.width()))
    , m_height(size.height())
    , m_values(m_width * static_cast<std::size_t>(m_height))
{}

void CoveragePlane::put(const QImage& sheet, const QPoint& corner)
{
    for (int y = 0; y < sheet.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(sheet.constScanLine(y));
        float* const to = row(corner.y() + y) + corner.x();
        for (int x = 0; x < sheet.width(); ++x)
            to[x] = static_cast<float>(qAlpha(from[x])) / 255.0f;
    }
}

void CoveragePlane::blur(double deviationX, double deviationY)
{
    blurRows(deviationX);
    blurColumns(deviationY);
}

void CoveragePlane::blurRows(double deviation)
{
    const auto kernel = softeningKernel(deviation);
    const std::size_t radius = kernel.size() - 1;
    if (radius == 0)
        return;
    // Nothing lies outside.
    std::vector<float> padded(m_width + 2 * radius);
    for (int y = 0; y < m_height; ++y) {
        float* const values = row(y);
        std::copy(values, values + m_width, padded.begin() + static_cast<std::ptrdiff_t>(radius));
        std::fill(values, values + m_width, 0.0f);
        addScaled(values, padded.data() + radius, kernel[0], m_width);
        for (std::size_t i = 1; i <= radius; ++i) {
            addScaled(values, padded.data() + radius - i, kernel[i], m_width);
            addScaled(values, padded.data() + radius + i, kernel[i], m_width);
        }
    }
}

void CoveragePlane::blurColumns(double deviation)
{
    const auto kernel = softeningKernel(deviation);
    const int radius = static_cast<int>(kernel.size()) - 1;
    if (radius == 0)
        return;
    // The rows up to the one under way as they were; those below still are.
    std::vector<float> kept(static_cast<std::size_t>(radius + 1) * m_width);
    const auto keptRow = [&](int y) {
        return kept.data() + static_cast<std::size_t>(y % (radius + 1)) * m_width;
    };
    for (int y = 0; y < m_height; ++y) {
        float* const values = row(y);
        std::copy(values, values + m_width, keptRow(y));
        std::fill(values, values + m_width, 0.0f);
        for (int from = std::max(y - radius, 0); from <= std::min(y + radius, m_height - 1); ++from)
            addScaled(values, from <= y ? keptRow(from) : row(from),
                      kernel[static_cast<std::size_t>(std::abs(from - y))], m_width);
    }
}

QImage CoveragePlane::colored(const QColor& color, double gain) const
{
    QImage image(static_cast<int>(m_width), m_height, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    const Shades shades(color, gain);
    for (int y = 0; y < m_height; ++y) {
        const float* const from = row(y);
        auto* const to = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (std::size_t x = 0; x < m_width; ++x)
            to[x] = shades.at(from[x]);
    }
    return image;
}

} // namespace Tova2
