#include "nodes/linecollector.h"

#include "nodes/cubic.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

constexpr double kUnseenPixels = 0.125;
/// Of a fade, which is a dozen pixels long at any zoom unless its line is very wide.
constexpr double kMostLines = 64;

void appendArc(QPainterPath& path, const QPointF& start,
               std::span<const CrossingMarks::Curve> curves)
{
    path.moveTo(start);
    for (const auto& [control1, control2, end] : curves)
        path.cubicTo(control1, control2, end);
}

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

void LineCollector::flushThinner()
{
    if (m_thinner)
        m_thinner->finish([this](const QPointF& p) { keep(p); });
}

void LineCollector::begin(const QPointF& point)
{
    flushThinner();
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
    if (m_isLineNew) {
        m_lines.moveTo(point, m_lineStart);
        m_lines.tapers() = std::exchange(m_tapers, {});
    } else {
        m_lines.lineTo(point);
    }
    m_isLineNew = false;
}

void LineCollector::add(const CrossingMarks::Marked& marked)
{
    for (const CrossingMarks::Mark& mark : marked.marks) {
        lineTo(marked.at(mark.from));
        const auto curves = marked.curves(mark);
        const bool isApart = mark.isApart || m_arcs;
        if (!curves.empty() && !isApart) {
            addArc(curves);
            continue;
        }
        // Dashes go on below the gap.
        const double length = m_length + mark.to - mark.from;
        if (!curves.empty() && m_arcs) {
            appendArc(*m_arcs, m_current, curves);
        } else if (!curves.empty()) {
            begin(m_current);
            addArc(curves);
        }
        addFades(marked, marked.fades(mark));
        m_length = length;
        begin(marked.at(mark.to));
    }
}

void LineCollector::addFades(const CrossingMarks::Marked& marked,
                             std::span<const CrossingMarks::Fade> fades)
{
    if (!(m_fadingWidth > 0) || fades.empty())
        return;
    // Within two pixels nobody tells how much is there from how wide it is.
    constexpr double kNarrow = 2.5;
    if (m_fadingWidth <= kNarrow * m_pixel)
        return addTapers(marked, fades);
    for (std::size_t i = 0; i < fades.size(); ++i)
        addFade(marked, fades[i], i % 2 == 1);
}

// From the line under way to the one that begins next; where marks meet, what is left between two
// gaps is a line without length that tapers off both ways.
void LineCollector::addTapers(const CrossingMarks::Marked& marked,
                              std::span<const CrossingMarks::Fade> fades)
{
    const auto lengthOf = [](const CrossingMarks::Fade& fade) {
        return std::abs(fade.end - fade.clear);
    };
    flushThinner();
    m_lines.tapers().end = lengthOf(fades.front());
    constexpr double kShort = 1e-3;
    for (std::size_t i = 1; i + 1 < fades.size(); i += 2) {
        const double middle = fades[i].end;
        const double share = lengthOf(fades[i]) / std::abs(fades[i].full - fades[i].clear);
        m_tapers = {lengthOf(fades[i]), lengthOf(fades[i + 1]), std::min(share, 1.0)};
        begin(marked.at(middle - kShort));
        lineTo(marked.at(middle + kShort));
    }
    m_tapers = {lengthOf(fades.back()), 0, 1};
}

// Whatever way pixels lie, each has its share of a line in it, or of two.
void LineCollector::addFade(const CrossingMarks::Marked& marked, const CrossingMarks::Fade& fade,
                            bool isFadingIn)
{
    const double length = std::abs(fade.full - fade.clear);
    if (!(length > 0))
        return;
    const int count = static_cast<int>(std::clamp(std::round(length / m_pixel), 1.0, kMostLines));
    const double last = std::abs(fade.end - fade.clear) / length;
    const auto at = [&](double part) {
        return marked.at(fade.clear + std::min(part, last) * (fade.full - fade.clear));
    };
    for (int i = 0; i < count; ++i) {
        const double middle = ((isFadingIn ? i : count - 1 - i) + 0.5) / count;
        const double half = middle / 2 / count;
        begin(at(isFadingIn ? middle - half : middle + half));
        lineTo(at(isFadingIn ? middle + half : middle - half));
    }
}

void LineCollector::addArc(std::span<const CrossingMarks::Curve> curves)
{
    for (const auto& [control1, control2, end] : curves) {
        m_chords.clear();
        Cubic{{m_current, control1, control2, end}}.appendChordsWithin(m_flatness, m_chords);
        for (const QPointF& p : m_chords)
            lineTo(p);
    }
}

void LineCollector::finish()
{
    flushThinner();
    m_lines.finish();
}

} // namespace Tova2
