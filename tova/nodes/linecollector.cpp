#include "nodes/linecollector.h"

#include "nodes/cubic.h"

#include <cmath>

namespace Tova2 {

namespace {

constexpr double kUnseenPixels = 0.125;

} // namespace

LineCollector::LineCollector(Polylines& lines, const QTransform& toPixels, bool thinsOut,
                             bool measures)
    : m_lines(lines)
    , m_flatness(kUnseenPixels / std::sqrt(std::abs(toPixels.determinant())))
    , m_measures(measures)
{
    if (thinsOut)
        m_thinner.emplace(toPixels);
}

void LineCollector::moveTo(const QPointF& point, double lengthBefore)
{
    m_length = lengthBefore;
    begin(point);
}

void LineCollector::begin(const QPointF& point)
{
    if (m_thinner)
        m_thinner->finish([this](const QPointF& p) { keep(p); });
    m_lineStart = m_length;
    m_isLineNew = true;
    m_current = point;
    if (m_thinner)
        m_thinner->add(point, [this](const QPointF& p) { keep(p); });
    else
        keep(point);
}

void LineCollector::lineTo(const QPointF& point)
{
    measure(point);
    m_current = point;
    if (m_thinner)
        m_thinner->add(point, [this](const QPointF& p) { keep(p); });
    else
        keep(point);
}

void LineCollector::measure(const QPointF& next)
{
    if (m_measures)
        m_length += std::hypot(next.x() - m_current.x(), next.y() - m_current.y());
}

void LineCollector::keep(const QPointF& point)
{
    if (m_isLineNew)
        m_lines.moveTo(point, m_lineStart);
    else
        m_lines.lineTo(point);
    m_isLineNew = false;
}

void LineCollector::add(std::span<const QPainterPath::Element> elements)
{
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const QPointF to = elements[i];
        if (elements[i].isMoveTo()) {
            // Dashes go on below the gap.
            measure(to);
            begin(to);
        } else if (elements[i].isCurveTo()) {
            addChords(elements.subspan(i, 3));
            i += 2;
        } else {
            lineTo(to);
        }
    }
}

void LineCollector::addApart(std::span<const QPainterPath::Element> elements)
{
    if (!elements.empty())
        add(elements);
}

void LineCollector::addChords(std::span<const QPainterPath::Element> curve)
{
    m_chords.clear();
    Cubic{{m_current, curve[0], curve[1], curve[2]}}.appendChordsWithin(m_flatness, m_chords);
    for (const QPointF& p : m_chords)
        lineTo(p);
}

void LineCollector::finish()
{
    if (m_thinner)
        m_thinner->finish([this](const QPointF& p) { keep(p); });
    m_lines.finish();
}

} // namespace Tova2
