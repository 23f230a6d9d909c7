#include "scenebuilder.h"

#include "connectornode.h"
#include "figurestyle.h"
#include "textfitter.h"

#include <tova/nodes/containernode.h>
#include <tova/nodes/ellipsenode.h>
#include <tova/nodes/rectnode.h>
#include <tova/nodes/shapenode.h>
#include <tova/nodes/style/background.h>

#include <algorithm>

namespace TovaView {
namespace {

constexpr double pageMargin = 8;
/// Lets a line that runs through a label be guessed, and the label be read.
constexpr double groundOpacity = 0.8;
// Of the font's size, from the baseline: what letters reach as a rule.
constexpr double letterHeight = 0.78, letterDepth = 0.22, strikeHeight = 0.27;

bool isWhite(const Vetra::Color& color)
{
    return color.packed() == 0xffffffff;
}

Vetra::Color withOpacity(const Vetra::Color& color, double opacity)
{
    return {color.red() / 255.0, color.green() / 255.0, color.blue() / 255.0, opacity};
}

Vetra::Color onWhite(const Vetra::Color& color)
{
    const double opacity = color.alpha() / 255.0;
    const auto mix = [opacity](int channel) { return 1 - opacity * (1 - channel / 255.0); };
    return {mix(color.red()), mix(color.green()), mix(color.blue())};
}

std::size_t segmentsOf(const Vetra::Shape& path)
{
    std::size_t count = 0;
    for (const Vetra::Shape::Element& element : path.elements())
        count += element.type == Vetra::Shape::ElementType::LineTo ||
                 element.type == Vetra::Shape::ElementType::CubicTo;
    return count;
}

/// Nothing shines through it, so that a shadow tells where it ends.
bool isSolid(const Figure& figure)
{
    if (!figure.fill)
        return false;
    if (!figure.fill->gradient)
        return figure.fill->color.alpha() == 255;
    const auto& stops = figure.fill->gradient->stops;
    return std::all_of(stops.begin(), stops.end(),
                       [](const GradientStop& stop) { return stop.color.alpha() == 255; });
}

/// Soft and small: enough to lift a block off the page.
Tova2::Effect blockShadow()
{
    return Tova2::Effect::createEffect(Tova2::Effect::Shadow(0.28, 3, {1, 2}, true));
}

/// The line through a text; fonts know of none.
Figure strikeOf(const TextPiece& text)
{
    const Rect rect = TextFitter(text).rect();
    const double y = text.anchor.y - text.size * strikeHeight;
    return {Outline::Polyline,
            {{rect.x, y}, {rect.right(), y}},
            {},
            LineStyle{text.color, text.size / 16}};
}

Tova2::Node containerAt(const Point& origin)
{
    Tova2::ContainerNode container;
    container.setPosition(origin);
    return container;
}

} // namespace

SceneBuilder::SceneBuilder(const Diagram& diagram, const std::optional<Vetra::Color>& ground)
    : m_diagram(diagram), m_wantedGround(ground)
{}

DiagramScene SceneBuilder::build()
{
    m_result.scene = Tova2::Scene::createScene();
    m_result.area = m_diagram.bounds;
    m_result.blockNodes.resize(m_diagram.blocks.size());
    m_result.connectorNodes.resize(m_diagram.connectors.size());
    addPage();
    addClusters();
    addBlocks(true);
    addConnectors();
    addBlocks(false);
    addConnectorLabels();
    const Rect bounds = m_result.scene->getBounds();
    if (bounds.width > 0 || bounds.height > 0)
        includeInArea(bounds);
    m_result.area = m_result.area.grown(pageMargin);
    return std::move(m_result);
}

/// The page's own figure is its ground. Its colour goes on beyond the page's edge; white is the
/// ground anyway.
void SceneBuilder::addPage()
{
    Drawing page = m_diagram.page;
    const bool hasGround = !page.figures.empty() && page.figures.front().fill;
    if (m_wantedGround)
        setGround(*m_wantedGround);
    else if (hasGround)
        setGround(page.figures.front().fill->color);
    if (hasGround && (m_wantedGround || !page.figures.front().fill->gradient))
        page.figures.erase(page.figures.begin());
    if (!page.empty())
        fill({}, {}, page);
}

void SceneBuilder::setGround(const Vetra::Color& color)
{
    Tova2::Background background;
    background.setColor(color);
    if (!isWhite(color))
        m_result.scene->setBackground(background);
    m_ground = onWhite(color);
}

void SceneBuilder::addClusters()
{
    for (const Cluster& cluster : m_diagram.clusters) {
        const Tova2::Node parent = cluster.parent < 0
                                       ? Tova2::Node()
                                       : m_clusters[static_cast<std::size_t>(cluster.parent)];
        Tova2::Node container = containerAt(cluster.frame.topLeft());
        if (parent.isValid()) {
            const Point outer =
                m_diagram.clusters[static_cast<std::size_t>(cluster.parent)].frame.topLeft();
            container.setPosition({cluster.frame.x - outer.x, cluster.frame.y - outer.y});
        }
        place(container, parent);
        name(container, cluster.id);
        fill(container, cluster.frame.topLeft(), cluster.drawing);
        m_clusters.push_back(container);
    }
}

void SceneBuilder::addBlocks(bool inClusters)
{
    for (std::size_t i = 0; i < m_diagram.blocks.size(); ++i) {
        const Block& block = m_diagram.blocks[i];
        if (inClusters != (block.cluster >= 0) || block.drawing.empty())
            continue;
        Tova2::Node parent;
        Point outer{};
        if (inClusters) {
            const auto cluster = static_cast<std::size_t>(block.cluster);
            parent = m_clusters[cluster];
            outer = m_diagram.clusters[cluster].frame.topLeft();
        }
        const Point origin = block.frame.topLeft();
        Tova2::Node container = containerAt({origin.x - outer.x, origin.y - outer.y});
        place(container, parent);
        name(container, block.id);
        m_result.blockNodes[i] = container;
        fill(container, origin, block.drawing, true);
    }
}

void SceneBuilder::addConnectors()
{
    for (std::size_t i = 0; i < m_diagram.connectors.size(); ++i) {
        const Connector& connector = m_diagram.connectors[i];
        if (connector.hidden)
            hide(connector);
        else if (!connector.lines.empty())
            addConnector(connector, m_result.connectorNodes[i]);
    }
}

/// All coordinates are the scene's, so that they stay what the layout says to the last bit.
void SceneBuilder::addConnector(const Connector& connector, ConnectorNodes& nodes)
{
    ++m_result.connectors;
    nodes.tailGround = connector.tailEnding ? groundAt(connector.tailEnding->tip) : std::nullopt;
    nodes.headGround = connector.headEnding ? groundAt(connector.headEnding->tip) : std::nullopt;
    Tova2::Node& root = nodes.line;
    const auto add = [&](Tova2::Node node, const Figure& figure) {
        node.setDrawStyle(styleOf(figure, {}));
        place(node, root);
        m_result.items[node].path = shapeOf(figure, {});
        if (!root.isValid())
            root = node;
    };
    const auto& lines = connector.lines;
    const Tova2::LineEndDecoration none;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool isFirst = i == 0, isLast = i + 1 == lines.size();
        add(makeConnectorNode(lines[i],
                              isFirst ? decorationOf(connector.tailEnding, nodes.tailGround) : none,
                              isLast ? decorationOf(connector.headEnding, nodes.headGround) : none),
            lines[i]);
        m_result.segments += segmentsOf(shapeOf(lines[i], {}));
    }
    for (const auto& ending : {connector.tailEnding, connector.headEnding})
        if (ending && !ending->isOnLine())
            for (const Figure& figure : ending->figures)
                add(Tova2::ShapeNode(shapeOf(figure, {})), figure);
    name(root, connector.id);
}

void SceneBuilder::addConnectorLabels()
{
    for (std::size_t i = 0; i < m_diagram.connectors.size(); ++i) {
        const Connector& connector = m_diagram.connectors[i];
        m_placed = &m_result.connectorNodes[i].labels;
        for (const TextPiece& text : connector.labels.texts)
            addLabelGround(text);
        fill({}, {}, connector.labels);
        m_placed = &m_result.connectorNodes[i].endLabels;
        fill({}, {}, connector.endLabels);
        m_placed = nullptr;
    }
}

/// Connectors may run through a label; on a ground of its own it stays readable.
void SceneBuilder::addLabelGround(const TextPiece& text)
{
    const auto color = groundAt(text.anchor);
    if (!color)
        return;
    const Rect line = inkOf(text);
    Tova2::RectNode ground({line.x, text.anchor.y - text.size * letterHeight, line.width,
                            text.size * (letterHeight + letterDepth)});
    ground.setDrawStyle({Tova2::Stroke::NoStroke(), withOpacity(*color, groundOpacity)});
    place(ground, {});
}

/// The colour that a point of a connector lies on; nothing when it is not one colour.
std::optional<Vetra::Color> SceneBuilder::groundAt(const Point& point) const
{
    std::optional<Vetra::Color> ground = m_ground;
    for (const Cluster& cluster : m_diagram.clusters) { // inner ones come after outer ones
        const auto& figures = cluster.drawing.figures;
        if (!cluster.frame.contains(point) || figures.empty() || !figures.front().fill)
            continue;
        const FillStyle& fill = *figures.front().fill;
        if (fill.gradient || fill.color.alpha() < 255)
            ground.reset();
        else
            ground = fill.color;
    }
    return ground;
}

/// Of a block only its body, the first of its figures, casts a shadow.
void SceneBuilder::fill(const Tova2::Node& parent, const Point& origin, const Drawing& drawing,
                        bool isBlock)
{
    for (const Figure& figure : drawing.figures) {
        Tova2::Node node = makeFigure(figure, origin);
        if (isBlock && &figure == &drawing.figures.front() && isSolid(figure))
            node.setEffect(blockShadow());
        place(node, parent);
    }
    for (const TextPiece& text : drawing.texts) {
        Tova2::Node node = makeText(text, origin);
        place(node, parent);
        if (text.strikeOut) {
            node = makeFigure(strikeOf(text), origin);
            place(node, parent);
        }
    }
}

Tova2::Node SceneBuilder::makeFigure(const Figure& figure, const Point& origin)
{
    const Rect box = boxOf(figure.points).translated({-origin.x, -origin.y});
    Tova2::Node node;
    if (figure.outline == Outline::Ellipse) {
        node = Tova2::EllipseNode(Tova2::Ellipse(box));
    } else if (rectOf(figure)) {
        node = Tova2::RectNode(box);
    } else {
        const Vetra::Shape shape = shapeOf(figure, origin);
        node = Tova2::ShapeNode(shape);
        m_result.items[node].path = shape;
    }
    node.setDrawStyle(styleOf(figure, origin));
    return node;
}

void SceneBuilder::hide(const Connector& connector)
{
    for (const Figure& figure : connector.lines) {
        Tova2::Node node = makeConnectorNode(figure);
        node.setDrawStyle(styleOf(figure, {}));
        m_result.hidden.push_back(node);
    }
}

Tova2::Node SceneBuilder::makeText(const TextPiece& text, const Point& origin)
{
    const TextFitter fitter(text);
    includeInArea(fitter.rect());
    Tova2::Node node = fitter.makeNode(origin);
    m_result.items[node].text = text.text;
    return node;
}

void SceneBuilder::place(Tova2::Node& node, const Tova2::Node& parent)
{
    if (parent.isValid())
        node.setParent(parent);
    else
        m_result.scene->addNode(node);
    if (m_placed)
        m_placed->push_back(node);
}

void SceneBuilder::name(Tova2::Node& node, const QString& name)
{
    m_result.items[node].name = name;
    if (node.isValid() && !name.isEmpty())
        node.addTag("ToolTip", name.toStdString());
}

void SceneBuilder::includeInArea(const Rect& rect)
{
    m_result.area = m_result.area.united(rect);
}

} // namespace TovaView
