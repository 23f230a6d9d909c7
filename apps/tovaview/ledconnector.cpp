#include "ledconnector.h"

#include "connectornode.h"
#include "coursepoint.h"
#include "figurestyle.h"

#include <algorithm>

namespace TovaView {
namespace {

constexpr double touch = 1;      ///< so far into a block is not through it yet
constexpr double onCourse = 0.5; ///< a label that lies as near to the line as before stays

Rect boxOf(const std::vector<Tova2::Node>& nodes)
{
    Rect box;
    for (const Tova2::Node& node : nodes) {
        const Rect rect = node.mapLocalRectToSceneRect(node.getBoundingRect());
        box = box.isValid() ? box.united(rect) : rect;
    }
    return box;
}

} // namespace

LedConnector::LedConnector(const Diagram& diagram, const Connector& connector,
                           const ConnectorNodes& nodes)
    : m_connector(connector), m_nodes(nodes), m_course(courseOf(connector))
{
    if (!canFollow())
        return;
    m_reach = boxOf(m_course);
    m_tail = tailEndOf(diagram, connector, m_course);
    m_head = headEndOf(diagram, connector, m_course);
    for (const auto* labels : {&m_nodes.labels, &m_nodes.endLabels})
        for (const Tova2::Node& label : *labels)
            m_labelPositions.push_back(label.getPosition());
}

bool LedConnector::runsThroughOneOf(const std::vector<Rect>& rects) const
{
    if (!canFollow())
        return false;
    const Points& course = m_way.course.empty() ? m_course : m_way.course;
    return std::any_of(rects.begin(), rects.end(), [&](const Rect& rect) {
        const Rect inside = rect.grown(-touch);
        return inside.isValid() && m_reach.intersects(inside) &&
               entersRect(course, inside.translated({-m_way.offset.x, -m_way.offset.y}));
    });
}

LedConnector::Way LedConnector::wayAround(const Point& tailBy, const Point& headBy,
                                          const Surroundings& surroundings) const
{
    const Points course = route(m_tail.moved(tailBy), m_head.moved(headBy), surroundings);
    return course.size() > 1 ? Way{{}, course} : m_way;
}

LedConnector::Way LedConnector::wayFor(const Point& tailBy, const Point& headBy,
                                       const Surroundings& surroundings) const
{
    if (tailBy == headBy)
        return {tailBy, {}};
    Points course = stretched(m_course, m_tail, tailBy, m_head, headBy, surroundings);
    if (course.empty())
        course = route(m_tail.moved(tailBy), m_head.moved(headBy), surroundings);
    return {{}, course.size() > 1 ? course : Points()};
}

void LedConnector::lead(const Way& way)
{
    if (!canFollow() || way == m_way)
        return;
    m_way = way;
    m_reach = way.course.empty() ? boxOf(m_course).translated(way.offset) : boxOf(way.course);
    const bool isLed = !way.course.empty();
    if (isLed)
        showCourse();
    else
        m_nodes.line.setPosition(way.offset);
    m_nodes.line.setVisible(!isLed);
    if (m_line)
        m_line->setVisible(isLed);
    placeLabels();
}

void LedConnector::showCourse()
{
    if (m_line)
        return m_line->setPoints(m_way.course);
    m_line = makeLine();
    m_nodes.line.getScene()->addNode(*m_line);
    m_line->placeAbove(m_nodes.line);
}

Tova2::OpenLinearPathNode LedConnector::makeLine() const
{
    Figure figure = m_connector.lines.front();
    figure.outline = Outline::Polyline;
    figure.points = m_way.course;
    auto line = makeConnectorNode(figure, decorationOf(m_connector.tailEnding, m_nodes.tailGround),
                                  decorationOf(m_connector.headEnding, m_nodes.headGround))
                    .as<Tova2::OpenLinearPathNode>();
    line.setDrawStyle(styleOf(figure, {}));
    return line;
}

/// A label keeps its place beside the line: where that is no longer, as far along the new one.
Point LedConnector::labelShift() const
{
    if (m_way.course.empty() || m_nodes.labels.empty())
        return m_way.offset;
    const CoursePoint beside = nearestOn(m_course, boxOf(m_nodes.labels).center());
    if (nearestOn(m_way.course, beside.point).distance < onCourse)
        return {};
    return pointAlong(m_way.course, beside.share) - beside.point;
}

void LedConnector::placeLabels()
{
    std::size_t at = 0;
    // Back first: the shift is found by where the layout has them.
    for (Tova2::Node& label : m_nodes.labels)
        label.setPosition(m_labelPositions[at++]);
    const Point shift = labelShift();
    for (Tova2::Node& label : m_nodes.labels)
        label.translate(shift);
    for (Tova2::Node& label : m_nodes.endLabels) {
        label.setPosition(m_labelPositions[at++]);
        label.translate(endLabelShift(boxOf({label}).center()));
    }
}

Point LedConnector::endLabelShift(const Point& label) const
{
    if (m_way.course.empty())
        return m_way.offset;
    const bool isAtTail =
        distanceBetween(label, m_course.front()) < distanceBetween(label, m_course.back());
    return isAtTail ? m_way.course.front() - m_course.front()
                    : m_way.course.back() - m_course.back();
}

} // namespace TovaView
