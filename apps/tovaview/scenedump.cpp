#include "scenedump.h"

#include <tova/nodes/nodeinspector.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace TovaView {
namespace {

using Ids = std::unordered_map<Tova2::Node, int>;

QJsonArray rectArray(const Rect& rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}

char letterOf(Vetra::Shape::ElementType type)
{
    switch (type) {
    case Vetra::Shape::ElementType::MoveTo:
        return 'M';
    case Vetra::Shape::ElementType::LineTo:
        return 'L';
    case Vetra::Shape::ElementType::CubicTo:
        return 'C';
    case Vetra::Shape::ElementType::CubicData:
        break;
    }
    return 'D';
}

void addPath(QJsonObject& object, const Tova2::Node& node, const Vetra::Shape& path)
{
    QJsonArray points;
    QString letters;
    for (const Vetra::Shape::Element& element : path.elements()) {
        const Point point = node.mapLocalToScene(element.point);
        points.append(QJsonArray{point.x, point.y});
        letters += QLatin1Char(letterOf(element.type));
    }
    object[QLatin1String("points")] = points;
    object[QLatin1String("elements")] = letters;
}

QJsonObject describe(const Tova2::Node& node, const SceneItem& item, const Ids& ids)
{
    const Tova2::Node parent = node.getParent();
    QJsonObject object{
        {QStringLiteral("id"), ids.at(node)},
        {QStringLiteral("kind"), QLatin1String(node.getFullyQualifiedKobjTypeName())},
        {QStringLiteral("parent"), parent.isValid() ? QJsonValue(ids.at(parent)) : QJsonValue()},
        {QStringLiteral("z"), node.getZValue()},
        {QStringLiteral("rect"), rectArray(node.mapLocalRectToSceneRect(node.getBoundingRect()))},
        {QStringLiteral("text"), item.text}};
    if (!item.name.isEmpty())
        object[QLatin1String("name")] = item.name;
    if (!item.path.isEmpty())
        addPath(object, node, item.path);
    return object;
}

/// In the order of their ids, which begin at 1.
std::vector<Tova2::Node> nodesOf(const DiagramScene& diagram)
{
    std::vector<Tova2::Node> nodes = diagram.scene->getAllNodes();
    std::reverse(nodes.begin(), nodes.end());
    return nodes;
}

} // namespace

QByteArray dumpScene(const DiagramScene& diagram)
{
    const std::vector<Tova2::Node> nodes = nodesOf(diagram);
    Ids ids;
    for (const Tova2::Node& node : nodes)
        ids.emplace(node, static_cast<int>(ids.size()) + 1);
    QByteArray lines;
    for (const Tova2::Node& node : nodes) {
        const auto found = diagram.items.find(node);
        const SceneItem item = found == diagram.items.end() ? SceneItem{} : found->second;
        lines += lines.isEmpty() ? "[\n" : ",\n";
        lines += QJsonDocument(describe(node, item, ids)).toJson(QJsonDocument::Compact);
    }
    return lines.isEmpty() ? QByteArray("[]\n") : lines + "\n]\n";
}

std::string inspectNode(const DiagramScene& diagram, int id)
{
    const std::vector<Tova2::Node> nodes = nodesOf(diagram);
    const auto index = static_cast<std::size_t>(id) - 1; // too large when there is no such id
    return index < nodes.size() ? Tova2::inspectorText(nodes[index]) : std::string();
}

QByteArray statsLine(const DiagramScene& diagram, const Timings& timings)
{
    const QJsonObject stats{
        {QStringLiteral("nodes"), static_cast<qint64>(diagram.scene->getAllNodesCount())},
        {QStringLiteral("connectors"), static_cast<qint64>(diagram.connectors)},
        {QStringLiteral("segments"), static_cast<qint64>(diagram.segments)},
        {QStringLiteral("crossings"), static_cast<qint64>(diagram.crossings)},
        {QStringLiteral("crossingsShown"),
         static_cast<qint64>(diagram.scene->pathIntersectionsCount())},
        {QStringLiteral("bounds"), rectArray(diagram.scene->getBounds())},
        {QStringLiteral("loadMilliseconds"), timings.load},
        {QStringLiteral("buildMilliseconds"), timings.build},
        {QStringLiteral("crossingMilliseconds"), timings.crossings},
        {QStringLiteral("paintMilliseconds"), timings.paint}};
    return QJsonDocument(stats).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace TovaView
