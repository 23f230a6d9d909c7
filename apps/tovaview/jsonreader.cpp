#include "jsonreader.h"

#include "endingreader.h"
#include "fileerror.h"
#include "fontfamily.h"
#include "inputfile.h"
#include "label.h"
#include "placeholder.h"
#include "xdotreader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

constexpr double pointsPerInch = 72;
constexpr int mostElements = 200'000;
constexpr int deepestNesting = 256;
constexpr double widthOfLetter = 0.6; ///< of the font's size, on average
constexpr double farAway = 1000;      ///< from every line, in points

/// "x1,y1,x2,y2" as a page whose y grows downwards from `top`.
Rect readBox(const QJsonValue& value, double top)
{
    const QStringList numbers = value.toString().split(QLatin1Char(','));
    double n[4] = {};
    for (int i = 0; i < 4 && numbers.size() == 4; ++i) {
        bool valid = false;
        n[i] = numbers[i].toDouble(&valid);
        if (!valid || !(std::abs(n[i]) < 1e7))
            return {};
    }
    return Rect::fromCorners({n[0], top - n[1]}, {n[2], top - n[3]});
}

double topOf(const QJsonObject& graph)
{
    const Rect box = readBox(graph[QLatin1String("bb")], 0);
    return -box.y;
}

/// One graph at a time; indices of the text ("_gvid") are positions in its list of objects.
class GraphReader {
public:
    GraphReader(const QString& file, const QJsonObject& graph,
                const QHash<QString, QString>& families)
        : m_file(file)
        , m_graph(graph)
        , m_objects(graph[QLatin1String("objects")].toArray())
        , m_subgraphs(graph[QLatin1String("_subgraph_cnt")].toInt())
        , m_top(topOf(graph))
        , m_families(families)
        , m_xdot(m_top, families)
    {}

    Diagram read()
    {
        const QJsonArray edges = m_graph[QLatin1String("edges")].toArray();
        if (m_objects.size() + edges.size() > mostElements)
            throw FileError(m_file, 0, QStringLiteral("has more than 200000 elements"));
        m_diagram.name = m_graph[QLatin1String("name")].toString();
        m_diagram.bounds = readBox(m_graph[QLatin1String("bb")], m_top);
        m_diagram.page = readDrawings(m_graph, {"_draw_", "_ldraw_"});
        readClusters();
        m_blockOf.resize(static_cast<std::size_t>(m_objects.size()), -1);
        for (int i = m_subgraphs; i < m_objects.size(); ++i)
            readBlock(i);
        for (const QJsonValue edge : edges)
            readConnector(edge.toObject());
        return std::move(m_diagram);
    }

private:
    Drawing readDrawings(const QJsonObject& object, std::initializer_list<const char*> keys) const
    {
        Drawing drawing;
        for (const char* key : keys)
            m_xdot.read(object[QLatin1String(key)].toArray(), drawing);
        return drawing;
    }

    void readClusters()
    {
        m_clusterOf.resize(static_cast<std::size_t>(m_objects.size()), -1);
        m_wasRead.resize(m_clusterOf.size());
        std::vector<bool> isChild(m_objects.size(), false);
        for (int i = 0; i < m_subgraphs && i < m_objects.size(); ++i) {
            for (const QJsonValue child : m_objects.at(i)[QLatin1String("subgraphs")].toArray())
                if (child.toInt(-1) >= 0 && child.toInt() < m_objects.size())
                    isChild[static_cast<std::size_t>(child.toInt())] = true;
        }
        for (int i = 0; i < m_subgraphs && i < m_objects.size(); ++i)
            if (!isChild[static_cast<std::size_t>(i)])
                readSubgraph(i, -1, 0);
    }

    /// A subgraph that is not drawn hands its members to the cluster around it.
    void readSubgraph(int index, int parent, int depth)
    {
        if (index < 0 || index >= m_subgraphs || index >= m_objects.size() ||
            m_wasRead[static_cast<std::size_t>(index)])
            return;
        m_wasRead[static_cast<std::size_t>(index)] = true;
        if (depth > deepestNesting)
            throw FileError(m_file, 0, QStringLiteral("has clusters nested deeper than 256"));
        const QJsonObject object = m_objects.at(index).toObject();
        const QString name = object[QLatin1String("name")].toString();
        int cluster = parent;
        if (name.startsWith(QLatin1String("cluster")) && object.contains(QLatin1String("bb"))) {
            cluster = static_cast<int>(m_diagram.clusters.size());
            m_diagram.clusters.push_back({name, parent, readBox(object[QLatin1String("bb")], m_top),
                                          readDrawings(object, {"_draw_", "_ldraw_"})});
        }
        for (const QJsonValue node : object[QLatin1String("nodes")].toArray())
            if (node.toInt(-1) >= 0 && node.toInt() < m_objects.size() && cluster >= 0)
                m_clusterOf[static_cast<std::size_t>(node.toInt())] = cluster;
        for (const QJsonValue child : object[QLatin1String("subgraphs")].toArray())
            readSubgraph(child.toInt(-1), cluster, depth + 1);
    }

    void readBlock(int index)
    {
        const QJsonObject object = m_objects.at(index).toObject();
        const QStringList pos = object[QLatin1String("pos")].toString().split(QLatin1Char(','));
        if (pos.size() < 2)
            return;
        const double width = object[QLatin1String("width")].toString().toDouble() * pointsPerInch;
        const double height = object[QLatin1String("height")].toString().toDouble() * pointsPerInch;
        const Point center{pos[0].toDouble(), m_top - pos[1].toDouble()};
        // The sum is finite only when all of them are.
        if (!(std::abs(center.x) + std::abs(center.y) + std::abs(width) + std::abs(height) < 1e7))
            return;
        Block block;
        block.id = object[QLatin1String("name")].toString();
        block.cluster = m_clusterOf[static_cast<std::size_t>(index)];
        block.frame = {center.x - width / 2, center.y - height / 2, width, height};
        block.drawing = readDrawings(object, {"_draw_", "_ldraw_", "_xldraw_"});
        if (const QString image = object[QLatin1String("image")].toString(); !image.isEmpty())
            addPlaceholder(image, block);
        m_blockOf[static_cast<std::size_t>(index)] = static_cast<int>(m_diagram.blocks.size());
        m_diagram.blocks.push_back(std::move(block));
    }

    int blockAt(const QJsonValue& index) const
    {
        const int i = index.toInt(-1);
        return i < 0 || i >= m_objects.size() ? -1 : m_blockOf[static_cast<std::size_t>(i)];
    }

    void readConnector(const QJsonObject& object)
    {
        Connector connector;
        connector.tail = blockAt(object[QLatin1String("tail")]);
        connector.head = blockAt(object[QLatin1String("head")]);
        if (connector.tail < 0 || connector.head < 0)
            return;
        const auto& blocks = m_diagram.blocks;
        const bool directed = m_graph[QLatin1String("directed")].toBool();
        connector.id = blocks[static_cast<std::size_t>(connector.tail)].id +
                       (directed ? QStringLiteral(" -> ") : QStringLiteral(" -- ")) +
                       blocks[static_cast<std::size_t>(connector.head)].id;
        for (Figure& line : readDrawings(object, {"_draw_"}).figures)
            connector.lines.push_back(simplified(std::move(line)));
        readEndings(object, m_top, readDrawings(object, {"_tdraw_"}).figures,
                    readDrawings(object, {"_hdraw_"}).figures, connector);
        connector.labels = readDrawings(object, {"_ldraw_", "_xldraw_"});
        if (connector.labels.empty())
            addLostLabel(object, connector);
        connector.endLabels = readDrawings(object, {"_tldraw_", "_hldraw_"});
        m_diagram.connectors.push_back(std::move(connector));
    }

    /// dot leads loops at right angles and forgets to draw their labels. Where they go is found
    /// when the line is known.
    void addLostLabel(const QJsonObject& object, Connector& connector) const
    {
        const QString label = object[QLatin1String("label")].toString();
        const auto lines =
            label.startsWith(QLatin1Char('<')) ? markupLines(label) : labelLines(label);
        TextStyle style;
        style.size =
            qBound(1.0, object[QLatin1String("fontsize")].toString(QStringLiteral("14")).toDouble(),
                   1000.0);
        const QString font =
            object[QLatin1String("fontname")].toString(QStringLiteral("Times-Roman"));
        style.family = m_families.value(font, faceOf(font).family);
        int longest = 0;
        for (const LabelLine& line : lines)
            longest = std::max(longest, line.text.size());
        const double width = longest * style.size * widthOfLetter;
        connector.labels.texts = placeLines(
            lines, {0, 0, width, static_cast<double>(lines.size()) * style.size * lineHeight},
            style);
        translate(connector.labels, {m_diagram.bounds.x - farAway, m_diagram.bounds.y - farAway});
    }

    const QString& m_file;
    QJsonObject m_graph;
    QJsonArray m_objects;
    int m_subgraphs;
    double m_top;
    const QHash<QString, QString>& m_families;
    XdotReader m_xdot;
    Diagram m_diagram;
    std::vector<int> m_clusterOf; ///< by position in m_objects, like the next
    std::vector<int> m_blockOf;
    std::vector<bool> m_wasRead;
};

/// dot prints control characters of labels raw, which JSON forbids.
QByteArray cleaned(QByteArray json)
{
    for (char& c : json) {
        if (static_cast<unsigned char>(c) < 0x20 && c != '\n')
            c = ' ';
    }
    return toUtf8(json);
}

/// The end of the object that starts at `from`; -1 when it has none.
int objectEnd(const QByteArray& json, int from)
{
    int depth = 0;
    bool quoted = false;
    for (int i = from; i < json.size(); ++i) {
        const char c = json[i];
        if (quoted && c == '\\')
            ++i;
        else if (c == '"')
            quoted = !quoted;
        else if (!quoted && c == '{')
            ++depth;
        else if (!quoted && c == '}' && --depth == 0)
            return i + 1;
    }
    return -1;
}

QJsonObject parse(const QString& file, const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (!document.isObject())
        throw FileError(file, 0,
                        QStringLiteral("dot's answer is damaged: %1").arg(error.errorString()));
    return document.object();
}

} // namespace

Diagram readJson(const QString& file, const QByteArray& json,
                 const QHash<QString, QString>& families, int* graphCount)
{
    const QByteArray text = cleaned(json);
    Diagram diagram;
    int count = 0;
    for (int from = text.indexOf('{'); from >= 0;) {
        const int end = objectEnd(text, from);
        const QJsonObject graph = parse(file, text.mid(from, end < 0 ? -1 : end - from));
        Diagram next = GraphReader(file, graph, families).read();
        if (count++ == 0)
            diagram = std::move(next);
        else
            appendBeside(diagram, std::move(next));
        from = text.indexOf('{', end);
    }
    if (count == 0)
        throw FileError(file, 0, QStringLiteral("holds no graph"));
    if (graphCount)
        *graphCount = count;
    return diagram;
}

} // namespace TovaView
