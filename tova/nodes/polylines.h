#pragma once

#include <QPainterPath>
#include <QPointF>

#include <cstddef>
#include <span>
#include <vector>

namespace Tova2 {

/// Lines one after the other. A line of a single point gives way to the next; after the last one
/// `finish` has to be called.
class Polylines {
public:
    /// How a line leaves off beyond its ends, for an area that tapers away.
    struct Tapers {
        double start = 0, end = 0; ///< their lengths; 0 where the line ends as it is
        double share = 1;          ///< of the stroke's width, along the line
    };

    void clear()
    {
        m_points.clear();
        m_lines.clear();
    }
    /// `lengthBefore` is that of what comes before on the whole, for dashes.
    void moveTo(const QPointF& point, double lengthBefore = 0)
    {
        finish();
        m_lines.push_back({m_points.size(), lengthBefore, {}});
        m_points.push_back(point);
    }
    /// Of the line under way.
    Tapers& tapers() { return m_lines.back().tapers; }
    void lineTo(const QPointF& point) { m_points.push_back(point); }
    void finish()
    {
        if (m_lines.empty() || m_lines.back().first + 1 < m_points.size())
            return;
        m_points.pop_back();
        m_lines.pop_back();
    }

    /// For the toolkit's stroker. It takes a path of nothing but single lines for just these, which
    /// it cuts off at the edges of the device, so that their pixels depend on the view; hence a
    /// corner within each.
    QPainterPath path() const
    {
        QPainterPath path;
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const auto points = line(i);
            path.moveTo(points.front());
            if (points.size() == 2)
                path.lineTo((points[0] + points[1]) / 2);
            for (const QPointF& point : points.subspan(1))
                path.lineTo(point);
        }
        return path;
    }

    std::size_t lineCount() const { return m_lines.size(); }
    std::span<const QPointF> line(std::size_t index) const
    {
        const std::size_t first = m_lines[index].first;
        const std::size_t end =
            index + 1 < m_lines.size() ? m_lines[index + 1].first : m_points.size();
        return std::span(m_points).subspan(first, end - first);
    }
    const Tapers& tapers(std::size_t index) const { return m_lines[index].tapers; }
    double lengthBefore(std::size_t index) const { return m_lines[index].lengthBefore; }
    std::size_t pointCount() const { return m_points.size(); }
    std::vector<QPointF>& points() { return m_points; }

private:
    struct Line {
        std::size_t first;
        double lengthBefore;
        Tapers tapers;
    };

    std::vector<QPointF> m_points;
    std::vector<Line> m_lines;
};

} // namespace Tova2
