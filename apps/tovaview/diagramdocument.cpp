#include "diagramdocument.h"

#include "diagramfile.h"
#include "scenebuilder.h"

#include <algorithm>

namespace TovaView {
namespace {

constexpr double areaMargin = 8;
constexpr double obstacleReach = 60;      ///< around the two ends
constexpr double obstacleGap = 6;         ///< what is nearer to an end is in no line's way
constexpr std::size_t mostObstacles = 16; ///< keeps the way quick to find

std::size_t indexOf(int block)
{
    return static_cast<std::size_t>(block);
}

Rect boxOf(const ConnectorEnd& end)
{
    return end.frame.value_or(Rect{end.port.x, end.port.y, 0, 0});
}

} // namespace

std::unique_ptr<DiagramDocument> DiagramDocument::open(const QString& file, QStringList& notes,
                                                       const std::optional<Vetra::Color>& ground)
{
    return std::make_unique<DiagramDocument>(
        std::make_unique<const Diagram>(readDiagram(file, notes)), ground);
}

DiagramDocument::DiagramDocument(std::unique_ptr<const Diagram> diagram,
                                 const std::optional<Vetra::Color>& ground)
    : m_diagram(std::move(diagram))
    , m_offsets(m_diagram->blocks.size())
    , m_positions(m_diagram->blocks.size())
    , m_connectorsOf(m_diagram->blocks.size())
{
    buildScene(ground);
    for (std::size_t i = 0; i < m_diagram->blocks.size(); ++i)
        if (m_scene.blockNodes[i].isValid())
            m_movable.push_back(static_cast<int>(i));
    for (std::size_t i = 0; i < m_connectors.size(); ++i)
        for (const ConnectorEnd* end : {&m_connectors[i].tail(), &m_connectors[i].head()})
            if (end->block >= 0)
                m_connectorsOf[indexOf(end->block)].push_back(i);
}

void DiagramDocument::buildScene(const std::optional<Vetra::Color>& ground)
{
    m_scene = SceneBuilder(*m_diagram, ground).build();
    m_layoutArea = m_scene.area;
    m_blockOf.clear();
    for (std::size_t i = 0; i < m_scene.blockNodes.size(); ++i) {
        const Tova2::Node& node = m_scene.blockNodes[i];
        if (!node.isValid())
            continue;
        m_positions[i] = node.getPosition();
        m_blockOf[node] = static_cast<int>(i);
    }
    m_connectors.clear();
    m_connectors.reserve(m_diagram->connectors.size());
    for (std::size_t i = 0; i < m_diagram->connectors.size(); ++i)
        m_connectors.emplace_back(*m_diagram, m_diagram->connectors[i], m_scene.connectorNodes[i]);
}

void DiagramDocument::setGround(const std::optional<Vetra::Color>& color)
{
    std::vector<LedConnector::Way> ways;
    for (const LedConnector& connector : m_connectors)
        ways.push_back(connector.way());
    const std::string decorator = scene().pathIntersectionsDecoratorName();
    buildScene(color);
    scene().usePathIntersectionsDecorator(decorator);
    for (const int index : m_movable)
        put(index, offsetOf(index));
    for (std::size_t i = 0; i < ways.size(); ++i)
        m_connectors[i].lead(ways[i]);
}

const DiagramScene& DiagramDocument::shown()
{
    m_scene.area = m_layoutArea.united(scene().getBounds().grown(areaMargin));
    return m_scene;
}

const Block& DiagramDocument::block(int index) const
{
    return m_diagram->blocks[indexOf(index)];
}

int DiagramDocument::blockOf(const Tova2::Node& node) const
{
    for (Tova2::Node at = node; at.isValid(); at = at.getParent()) {
        if (const auto found = m_blockOf.find(at); found != m_blockOf.end())
            return found->second;
    }
    return -1;
}

Rect DiagramDocument::frameOf(int index) const
{
    return block(index).frame.translated(offsetOf(index));
}

QString DiagramDocument::nameOf(int index) const
{
    return block(index).id;
}

Point DiagramDocument::offsetOf(int index) const
{
    return index < 0 ? Point() : m_offsets[indexOf(index)];
}

std::vector<std::size_t> DiagramDocument::connectorsOf(const std::vector<int>& blocks) const
{
    std::vector<std::size_t> found;
    for (const int index : blocks) {
        const auto& own = m_connectorsOf[indexOf(index)];
        found.insert(found.end(), own.begin(), own.end());
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

DiagramDocument::Placement DiagramDocument::placementOf(const std::vector<int>& blocks) const
{
    Placement placement;
    for (const int index : blocks)
        placement.blocks.push_back({index, offsetOf(index)});
    for (const std::size_t i : connectorsOf(blocks))
        placement.ways.emplace_back(i, m_connectors[i].way());
    return placement;
}

void DiagramDocument::restore(const Placement& placement)
{
    for (const auto& [index, offset] : placement.blocks)
        put(index, offset);
    for (const auto& [connector, way] : placement.ways)
        m_connectors[connector].lead(way);
}

void DiagramDocument::moveFrom(const Placement& from, const Point& distance)
{
    for (const auto& [index, offset] : from.blocks)
        put(index, offset + distance);
    std::vector<Points> courses;
    for (const auto& entry : from.ways)
        follow(m_connectors[entry.first], courses);
}

void DiagramDocument::put(int index, const Point& offset)
{
    m_offsets[indexOf(index)] = offset;
    m_scene.blockNodes[indexOf(index)].setPosition(m_positions[indexOf(index)] + offset);
}

/// Keeps clear of the courses that those before it have taken, and adds its own.
void DiagramDocument::follow(LedConnector& connector, std::vector<Points>& courses)
{
    const Point tailBy = offsetOf(connector.tail().block);
    const Point headBy = offsetOf(connector.head().block);
    const auto obstacles =
        obstaclesTo(connector.tail().moved(tailBy), connector.head().moved(headBy));
    connector.lead(connector.wayFor(tailBy, headBy, {obstacles, courses}));
    if (!connector.way().course.empty())
        courses.push_back(connector.way().course);
}

/// Other blocks near the two ends, as long as they are few.
std::vector<Rect> DiagramDocument::obstaclesTo(const ConnectorEnd& tail,
                                               const ConnectorEnd& head) const
{
    const Rect first = boxOf(tail), second = boxOf(head);
    const Rect reach = first.united(second).grown(obstacleReach);
    std::vector<Rect> obstacles;
    for (const int index : m_movable) {
        const Rect frame = frameOf(index);
        if (!reach.intersects(frame) || first.intersects(frame.grown(obstacleGap)) ||
            second.intersects(frame.grown(obstacleGap)))
            continue;
        obstacles.push_back(frame);
        if (obstacles.size() == mostObstacles)
            break;
    }
    return obstacles;
}

} // namespace TovaView
