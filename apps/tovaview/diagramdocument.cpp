#include "diagramdocument.h"

#include "scenebuilder.h"

#include <algorithm>
#include <string>

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

void DiagramDocument::Placement::completeWith(const Placement& other)
{
    aside.insert(other.aside.begin(), other.aside.end());
}

DiagramDocument::Placement DiagramDocument::placementOf(const std::vector<int>& blocks) const
{
    Placement placement;
    for (const int index : blocks)
        placement.blocks.push_back({index, offsetOf(index)});
    for (const std::size_t i : connectorsOf(blocks))
        placement.followers.emplace(i, m_connectors[i].way());
    return placement;
}

DiagramDocument::Placement DiagramDocument::nowOf(const Placement& placement) const
{
    Placement now = placement;
    for (Placement::BlockPlace& place : now.blocks)
        place.offset = offsetOf(place.block);
    for (Placement::Ways* ways : {&now.followers, &now.aside})
        for (auto& [index, way] : *ways)
            way = m_connectors[index].way();
    return now;
}

void DiagramDocument::restore(const Placement& placement)
{
    for (const auto& [index, offset] : placement.blocks)
        put(index, offset);
    for (const Placement::Ways* ways : {&placement.followers, &placement.aside})
        for (const auto& [connector, way] : *ways)
            m_connectors[connector].lead(way);
}

void DiagramDocument::moveFrom(Placement& from, const Point& distance)
{
    for (const auto& [index, offset] : from.blocks)
        put(index, offset + distance);
    std::vector<Points> courses;
    for (const auto& entry : from.followers)
        follow(m_connectors[entry.first], courses);
    for (const auto& [index, way] : from.aside)
        m_connectors[index].lead(way);
    makeWay(from, courses);
}

void DiagramDocument::makeWay(Placement& from, std::vector<Points>& courses)
{
    std::vector<Rect> frames;
    for (const auto& place : from.blocks)
        frames.push_back(frameOf(place.block));
    for (std::size_t i = 0; i < m_connectors.size(); ++i) {
        LedConnector& connector = m_connectors[i];
        if (from.followers.count(i) != 0 || !connector.runsThroughOneOf(frames))
            continue;
        from.aside.emplace(i, connector.way());
        connector.lead(connector.wayAround(offsetOf(connector.tail().block),
                                           offsetOf(connector.head().block),
                                           surroundingsOf(connector, frames, courses)));
        courses.push_back(connector.way().course);
    }
}

void DiagramDocument::takeMovesOf(const DiagramDocument& other)
{
    std::unordered_map<std::string, Point> moves;
    for (const int index : other.m_movable)
        if (const Point offset = other.offsetOf(index); offset != Point{})
            moves[other.nameOf(index).toStdString()] = offset;
    for (const int index : m_movable) {
        const auto move = moves.find(nameOf(index).toStdString());
        if (move == moves.end())
            continue;
        Placement from = placementOf({index});
        moveFrom(from, move->second);
    }
}

DiagramCounts DiagramDocument::counts() const
{
    return {m_movable.size(), m_scene.connectors};
}

void DiagramDocument::put(int index, const Point& offset)
{
    m_offsets[indexOf(index)] = offset;
    m_scene.blockNodes[indexOf(index)].setPosition(m_positions[indexOf(index)] + offset);
}

/// Keeps clear of the courses that those before it have taken, and adds its own.
void DiagramDocument::follow(LedConnector& connector, std::vector<Points>& courses)
{
    connector.lead(connector.wayFor(offsetOf(connector.tail().block),
                                    offsetOf(connector.head().block),
                                    surroundingsOf(connector, {}, courses)));
    if (!connector.way().course.empty())
        courses.push_back(connector.way().course);
}

/// Obstacles are `first` and other blocks near the two ends, as long as they are few.
Surroundings DiagramDocument::surroundingsOf(const LedConnector& connector,
                                             const std::vector<Rect>& first,
                                             const std::vector<Points>& courses) const
{
    const Rect tail = boxOf(connector.tail().moved(offsetOf(connector.tail().block)));
    const Rect head = boxOf(connector.head().moved(offsetOf(connector.head().block)));
    const Rect reach = tail.united(head).grown(obstacleReach);
    Surroundings surroundings{{}, courses};
    std::vector<Rect>& obstacles = surroundings.obstacles;
    const auto add = [&](const Rect& frame) {
        if (obstacles.size() < mostObstacles && !tail.intersects(frame.grown(obstacleGap)) &&
            !head.intersects(frame.grown(obstacleGap)))
            obstacles.push_back(frame);
    };
    for (const Rect& frame : first)
        if (reach.intersects(frame))
            add(frame);
    for (const int index : m_movable)
        if (const Rect frame = frameOf(index);
            reach.intersects(frame) &&
            std::find(obstacles.begin(), obstacles.end(), frame) == obstacles.end())
            add(frame);
    return surroundings;
}

} // namespace TovaView
