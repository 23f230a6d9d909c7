#include "nodes/linecollector.h"

#include "nodes/cubic.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr double kUnseenPixels = 0.125;
/// Of a fade, which is a dozen pixels long at any zoom unless its line is very wide.
constexpr double kMostLines = 64;

} // namespace

LineCollector::LineCollector(Polylines& lines, const QTransform& toPixels, bool thinsOut,
                             bool measures)
    : m_lines(lines)
    , m_pixel(1 / std::sqrt(std::abs(toPixels.determinant())))
    , m_flatness(kUnseenPixels * m_pixel)
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

// A fading line has nothing but lines, with a gap for two fades or, where marks meet, for more.
void LineCollector::addWithFades(const CrossingMarks::Marks& marks)
{
    if (marks.fades.empty())
        return add(marks.line);
    std::size_t next = 0;
    for (const QPainterPath::Element& element : marks.line) {
        if (!element.isMoveTo()) {
            lineTo(element);
            continue;
        }
        do {
            addFade(marks.fades[next], false);
            addFade(marks.fades[next + 1], true);
            next += 2;
        } while (next < marks.fades.size() && marks.fades[next - 1].full != element);
        begin(element);
    }
}

// Whatever way pixels lie, each has its share of a line in it, or of two.
void LineCollector::addFade(const CrossingMarks::Fade& fade, bool isFadingIn)
{
    const auto lengthTo = [&](const QPointF& p) {
        return std::hypot(p.x() - fade.clear.x(), p.y() - fade.clear.y());
    };
    const double length = lengthTo(fade.full);
    if (!(length > 0))
        return;
    const int count = static_cast<int>(std::clamp(std::round(length / m_pixel), 1.0, kMostLines));
    const double last = lengthTo(fade.end) / length;
    const auto at = [&](double part) {
        return fade.clear + std::min(part, last) * (fade.full - fade.clear);
    };
    for (int i = 0; i < count; ++i) {
        const double middle = ((isFadingIn ? i : count - 1 - i) + 0.5) / count;
        const double half = middle / 2 / count;
        begin(at(isFadingIn ? middle - half : middle + half));
        lineTo(at(isFadingIn ? middle + half : middle - half));
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
