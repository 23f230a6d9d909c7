#include "nodes/effects/boxcoverage.h"

#include "nodes/effects/coverageplane.h"

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cmath>

// A normal distribution softens across and down one after the other. Of a box with sharp corners
// that makes a product of two profiles, and a profile is the difference of two softened edges,
// which are read from a table: a pixel costs one multiplication. Round corners are rows of
// different width. Each row is softened across by the table, and as many rows as softening reaches
// are added up by its weights, only where they differ: there a pixel costs as many multiplications
// as there are weights. So the cost is that of the pixels asked for, whatever the size of the box
// and its corners, and nothing larger than these is ever kept. (Separable filters: any book on
// image processing. The table is the filter's running sum.)

namespace Tova2 {

namespace {

constexpr int kSubrows = 16; ///< that a row of pixels at a corner is made of

int floorOf(double value)
{
    return static_cast<int>(std::floor(value));
}

int ceilOf(double value)
{
    return static_cast<int>(std::ceil(value));
}

/// A row of values for the columns of a part.
struct Columns {
    float* values;
    int first, end;

    /// Clipped to what there is.
    template <class Value>
    void add(int from, int to, Value value) const
    {
        for (int x = std::max(from, first); x < std::min(to, end); ++x)
            values[x - first] += value(x);
    }
};

/// What [left, right] covers of each column once it is softened.
void addSpan(const Columns& columns, const SoftEdge& edge, double left, double right, float weight)
{
    const int reach = edge.reach();
    const int innerFirst = floorOf(left) + reach + 1, end = floorOf(right) + reach + 1;
    const int innerEnd = std::max(innerFirst, floorOf(right) - reach);
    const auto either = [&](int x) { return weight * (edge.at(left - x) - edge.at(right - x)); };
    columns.add(floorOf(left) - reach, std::min(innerFirst, end), either);
    columns.add(innerFirst, innerEnd, [weight](int) { return weight; });
    columns.add(innerEnd, end, either);
}

} // namespace

SoftEdge::SoftEdge(double deviation) : m_kernel(softeningKernel(deviation))
{
    m_sums.push_back(1);
    for (int i = -reach(); i <= reach(); ++i)
        m_sums.push_back(m_sums.back() - m_kernel[static_cast<std::size_t>(std::abs(i))]);
    m_sums.back() = 0;
}

float SoftEdge::at(double distance) const
{
    const double place = distance + reach();
    if (!(place > 0))
        return 1;
    if (!(place < static_cast<double>(m_sums.size() - 1)))
        return 0;
    const auto whole = static_cast<std::size_t>(place);
    const auto part = static_cast<float>(place - static_cast<double>(whole));
    return m_sums[whole] + (m_sums[whole + 1] - m_sums[whole]) * part;
}

BoxCoverage::BoxCoverage(const QRectF& box, const Look& look)
    : m_box(box), m_look(look), m_across(look.deviationX), m_down(look.deviationY)
{
    m_look.radiusX = std::min(look.radiusX, box.width() / 2);
    m_look.radiusY = std::min(look.radiusY, box.height() / 2);
}

QRect BoxCoverage::reach() const
{
    return {QPoint(floorOf(m_box.left()) - m_across.reach(), floorOf(m_box.top()) - m_down.reach()),
            QPoint(ceilOf(m_box.right()) + m_across.reach() - 1,
                   ceilOf(m_box.bottom()) + m_down.reach() - 1)};
}

QRect BoxCoverage::plain() const
{
    const double x = m_look.radiusX + m_across.reach(), y = m_look.radiusY + m_down.reach();
    return {QPoint(ceilOf(m_box.left() + x), ceilOf(m_box.top() + y)),
            QPoint(floorOf(m_box.right() - x) - 1, floorOf(m_box.bottom() - y) - 1)};
}

QRgb BoxCoverage::plainColor() const
{
    return Shades(QColor::fromRgba(m_look.color), m_look.gain).at(1);
}

/// Of the box's sides from where they are without corners.
double BoxCoverage::insetAt(double y) const
{
    const double beyond =
        std::max(m_box.top() + m_look.radiusY - y, y - m_box.bottom() + m_look.radiusY);
    if (!(beyond > 0) || !(m_look.radiusY > 0))
        return 0;
    const double share = std::min(beyond / m_look.radiusY, 1.0);
    return m_look.radiusX * (1 - std::sqrt(1 - share * share));
}

bool BoxCoverage::isNearCorners(int y) const
{
    return m_look.radiusX > 0 && (y - m_down.reach() < m_box.top() + m_look.radiusY ||
                                  y + m_down.reach() + 1 > m_box.bottom() - m_look.radiusY);
}

float BoxCoverage::down(int y) const
{
    return m_down.at(m_box.top() - y) - m_down.at(m_box.bottom() - y);
}

/// The rows near the corners, for the columns of a part; each is softened across once.
class BoxCoverage::Rows {
public:
    Rows(const BoxCoverage& box, int first, int width)
        : m_box(box)
        , m_first(first)
        , m_width(width)
        , m_count(2 * box.m_down.reach() + 1)
        , m_values(static_cast<std::size_t>(m_count) * static_cast<std::size_t>(width))
    {}

    /// Rows have to be asked for from the top down.
    void put(int y, std::vector<float>& values)
    {
        const int reach = m_box.m_down.reach();
        for (int row = m_known ? std::max(m_next, y - reach) : y - reach; row <= y + reach; ++row)
            layOut(row);
        m_next = y + reach + 1;
        m_known = true;
        const auto [least, most] = insetsNear(y);
        const int around = m_box.m_across.reach() + 1, end = m_first + m_width;
        const QRectF& box = m_box.m_box;
        const int innerFirst = std::clamp(ceilOf(box.left() + most) + around, m_first, end);
        const int innerEnd = std::clamp(floorOf(box.right() - most) - around, innerFirst, end);
        std::fill(values.begin(), values.end(), 0.0f);
        soften(y, std::clamp(floorOf(box.left() + least) - around, m_first, end), innerFirst,
               values);
        std::fill(values.begin() + (innerFirst - m_first), values.begin() + (innerEnd - m_first),
                  m_box.down(y));
        soften(y, innerEnd, std::clamp(ceilOf(box.right() - least) + around, m_first, end), values);
    }

private:
    float* row(int y)
    {
        const int slot = ((y % m_count) + m_count) % m_count;
        return m_values.data() + static_cast<std::ptrdiff_t>(slot) * m_width;
    }

    void layOut(int y)
    {
        float* const values = row(y);
        std::fill(values, values + m_width, 0.0f);
        const QRectF& box = m_box.m_box;
        const double top = std::max<double>(y, box.top());
        const double height = std::min(y + 1.0, box.bottom()) - top;
        if (!(height > 0))
            return;
        const Columns columns{values, m_first, m_first + m_width};
        for (int i = 0; i < kSubrows; ++i) {
            const double inset = m_box.insetAt(top + height * (i + 0.5) / kSubrows);
            addSpan(columns, m_box.m_across, box.left() + inset, box.right() - inset,
                    static_cast<float>(height / kSubrows));
        }
    }

    /// Of the rows of the box that softening brings to this one.
    std::pair<double, double> insetsNear(int y) const
    {
        const QRectF& box = m_box.m_box;
        const int reach = m_box.m_down.reach();
        const double from = std::clamp<double>(y - reach, box.top(), box.bottom());
        const double to = std::clamp<double>(y + reach + 1, box.top(), box.bottom());
        const double middle = std::clamp(box.center().y(), from, to);
        return {m_box.insetAt(middle), std::max(m_box.insetAt(from), m_box.insetAt(to))};
    }

    void soften(int y, int from, int end, std::vector<float>& values)
    {
        const auto& kernel = m_box.m_down.kernel();
        const int reach = m_box.m_down.reach();
        for (int i = -reach; i <= reach && from < end; ++i) {
            const float weight = kernel[static_cast<std::size_t>(std::abs(i))];
            const float* const source = row(y + i) - m_first;
            float* const sum = values.data() - m_first;
            for (int x = from; x < end; ++x)
                sum[x] += weight * source[x];
        }
    }

    const BoxCoverage& m_box;
    int m_first, m_width, m_count;
    int m_next = 0;
    bool m_known = false;
    std::vector<float> m_values;
};

QImage BoxCoverage::picture(const QRect& part) const
{
    QImage image(part.size(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    const Shades shades(QColor::fromRgba(m_look.color), m_look.gain);
    const auto width = static_cast<std::size_t>(part.width());
    std::vector<float> level(width), values(width);
    addSpan({level.data(), part.left(), part.right() + 1}, m_across, m_box.left(), m_box.right(),
            1);
    Rows rows(*this, part.left(), part.width());
    for (int y = part.top(); y <= part.bottom(); ++y) {
        if (isNearCorners(y))
            rows.put(y, values);
        else
            std::transform(level.begin(), level.end(), values.begin(),
                           [share = down(y)](float value) { return value * share; });
        auto* const pixels = reinterpret_cast<QRgb*>(image.scanLine(y - part.top()));
        std::transform(values.begin(), values.end(), pixels,
                       [&](float value) { return shades.at(value); });
    }
    return image;
}

} // namespace Tova2
