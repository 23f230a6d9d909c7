#include "scenebuilder.h"
#include "connectornode.h"
#include "crossings.h"
#include "pagesize.h"
#include "scenedump.h"
#include "support/rows.h"
#include "textfitter.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace TovaView {
namespace {

Figure boxFigure(const Rect& box)
{
    return {
        Outline::Polygon,
        {{box.x, box.y}, {box.right(), box.y}, {box.right(), box.bottom()}, {box.x, box.bottom()}},
        FillStyle{Vetra::Color::fromPacked(0xffffff00), {}},
        LineStyle{}};
}

TextPiece textAt(const char* words, const Point& anchor, double width)
{
    TextPiece text;
    text.text = QString::fromUtf8(words);
    text.anchor = anchor;
    text.width = width;
    text.family = QStringLiteral("DejaVu Sans");
    return text;
}

/// Two blocks, one of them in a cluster of a cluster, and a labelled connector between them.
Diagram smallDiagram()
{
    Diagram diagram;
    diagram.bounds = {0, 0, 200, 100};
    diagram.clusters = {
        {QStringLiteral("outer"), -1, {10, 10, 80, 80}, {{boxFigure({10, 10, 80, 80})}, {}}},
        {QStringLiteral("inner"), 0, {20, 20, 60, 60}, {{boxFigure({20, 20, 60, 60})}, {}}}};
    diagram.blocks = {
        {QStringLiteral("a"),
         1,
         {30, 40, 40, 20},
         {{boxFigure({30, 40, 40, 20})}, {textAt("A", {50, 55}, 0)}}},
        {QStringLiteral("b"), -1, {140, 40, 40, 20}, {{boxFigure({140, 40, 40, 20})}, {}}}};
    Connector connector;
    connector.id = QStringLiteral("a -> b");
    connector.lines = {{Outline::Polyline, {{70, 50}, {100, 50}, {130, 50}}, {}, LineStyle{}}};
    connector.headEnding =
        Ending{QStringLiteral("normal"),
               {{Outline::Polygon, {{130, 46}, {140, 50}, {130, 54}}, {}, LineStyle{}}},
               {140, 50},
               {1, 0},
               10,
               true};
    connector.labels.texts = {textAt("label", {100, 40}, 0)};
    diagram.connectors = {connector};
    return diagram;
}

QJsonArray dumpOf(const DiagramScene& scene)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(dumpScene(scene), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError);
    return document.array();
}

QJsonObject objectNamed(const QJsonArray& dump, const char* name)
{
    for (const QJsonValue value : dump)
        if (value[QLatin1String("name")].toString() == QLatin1String(name))
            return value.toObject();
    ADD_FAILURE() << "no " << name;
    return {};
}

QJsonArray numbers(std::initializer_list<double> values)
{
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

TEST(SceneBuilderTest, NestsClustersAndBlocks)
{
    const QJsonArray dump = dumpOf(SceneBuilder(smallDiagram()).build());
    const auto parentOf = [&](const char* name) {
        return objectNamed(dump, name)[QLatin1String("parent")];
    };
    const auto idOf = [&](const char* name) {
        return objectNamed(dump, name)[QLatin1String("id")];
    };
    EXPECT_TRUE(parentOf("outer").isNull());
    EXPECT_EQ(parentOf("inner"), idOf("outer"));
    EXPECT_EQ(parentOf("a"), idOf("inner"));
    EXPECT_TRUE(parentOf("b").isNull());
    EXPECT_TRUE(parentOf("a -> b").isNull());
}

TEST(SceneBuilderTest, EverythingIsWhereTheDiagramSays)
{
    const QJsonArray dump = dumpOf(SceneBuilder(smallDiagram()).build());
    bool foundBlock = false;
    // With its shadow.
    for (const QJsonValue value : dump) {
        foundBlock |=
            value[QLatin1String("kind")] == QLatin1String("Tova2.RectNode") &&
            value[QLatin1String("parent")] == objectNamed(dump, "a")[QLatin1String("id")] &&
            value[QLatin1String("rect")] == numbers({26, 37, 50, 30});
    }
    EXPECT_TRUE(foundBlock);
    const QJsonObject connector = objectNamed(dump, "a -> b");
    EXPECT_EQ(connector[QLatin1String("points")],
              (QJsonArray{numbers({70, 50}), numbers({100, 50}), numbers({130, 50})}));
    EXPECT_EQ(connector[QLatin1String("elements")], QStringLiteral("MLL"));
}

TEST(SceneBuilderTest, StacksClustersConnectorsBlocksLabels)
{
    const QJsonArray dump = dumpOf(SceneBuilder(smallDiagram()).build());
    const auto indexOf = [&](const char* key, const char* wanted) {
        for (int i = 0; i < dump.size(); ++i)
            if (dump[i][QLatin1String(key)].toString() == QLatin1String(wanted))
                return i;
        return -1;
    };
    EXPECT_LT(indexOf("name", "a"), indexOf("name", "a -> b"));
    EXPECT_LT(indexOf("name", "a -> b"), indexOf("name", "b"));
    EXPECT_LT(indexOf("name", "b"), indexOf("text", "label"));
}

TEST(SceneBuilderTest, CountsConnectorsAndTheirPieces)
{
    const DiagramScene scene = SceneBuilder(smallDiagram()).build();
    EXPECT_EQ(scene.connectors, 1u);
    EXPECT_EQ(scene.segments, 2u) << "heads do not count";
    const QJsonObject stats = QJsonDocument::fromJson(statsLine(scene, {1, 2, 3, 4})).object();
    EXPECT_EQ(stats[QLatin1String("nodes")].toInt(), dumpOf(scene).size());
    EXPECT_EQ(stats[QLatin1String("crossingMilliseconds")].toDouble(), 3);
    EXPECT_EQ(stats[QLatin1String("paintMilliseconds")].toDouble(), 4);
}

/// Of the crossing pass, the connector of the small diagram with another one on top.
std::size_t crossingsWith(const Points& line)
{
    Diagram diagram = smallDiagram();
    Connector other;
    other.lines = {{Outline::Polyline, line, {}, LineStyle{}}};
    diagram.connectors.push_back(other);
    DiagramScene scene = SceneBuilder(diagram).build();
    findCrossings(scene);
    return scene.crossings;
}

TEST(SceneBuilderTest, HeadsAreNotCrossed)
{
    EXPECT_EQ(crossingsWith({{80, 20}, {80, 80}}), 1u);
    EXPECT_EQ(crossingsWith({{120, 48}, {160, 48}}), 0u) << "the back of a head is upright";
}

struct EndingCase : NamedRow { ///< dot's, of what is at the end
    const char* kind;          ///< of the node for it
    bool isBeyond;
};
class ConnectorEndingTest : public testing::TestWithParam<EndingCase> {};

/// A line to the tip (20, 20) or until ten points before it, heading `way`, and what is at its end.
Tova2::Node connectorTowards(const Point& way, const EndingCase& row)
{
    const Point tip{20, 20}, back = tip - way * 10, side{4 * way.y, -4 * way.x};
    const Figure drawn{Outline::Polygon, {tip, back + side, back - side}, {}, LineStyle{}};
    const Figure line{
        Outline::Polyline, {tip - way * 90, row.isBeyond ? back : tip}, {}, LineStyle{}};
    return makeConnectorNode(
        line, {},
        decorationOf(Ending{QString::fromUtf8(row.name), {drawn}, tip, way, 10, row.isBeyond},
                     Vetra::Color()));
}

TEST_P(ConnectorEndingTest, TouchesTheTipAndTurnsWithTheLine)
{
    for (const Point& way : {Point{0, -1}, Point{-1, 0}}) {
        const Tova2::Node node = connectorTowards(way, GetParam());
        ASSERT_EQ(node.getChildren().size(), 1u);
        const Tova2::Node head = node.getChildAt(0);
        EXPECT_STREQ(head.getFullyQualifiedKobjTypeName(), GetParam().kind);
        auto scene = Tova2::Scene::createScene();
        scene->addNode(node);
        const Rect rect = scene->getBounds();
        EXPECT_NEAR(way.x ? rect.x : rect.y, 20, 1.5);
        EXPECT_NEAR(way.x ? rect.center().y : rect.center().x, 20, 1e-6);
        EXPECT_GT(way.x ? rect.height : rect.width, 5);
        scene->destroy();
    }
}

INSTANTIATE_TEST_SUITE_P(Endings, ConnectorEndingTest,
                         testing::Values(EndingCase{"normal", "Tova2.ShapeNode", true},
                                         EndingCase{"empty", "Tova2.ShapeNode", false},
                                         EndingCase{"inv", "Tova2.ShapeNode", false},
                                         EndingCase{"vee", "Tova2.ShapeNode", false},
                                         EndingCase{"ediamond", "Tova2.ShapeNode", false},
                                         EndingCase{"odot", "Tova2.EllipseNode", false},
                                         EndingCase{"box", "Tova2.RectNode", false},
                                         EndingCase{"tee", "Tova2.LineNode", false},
                                         EndingCase{"crow", "Tova2.ShapeNode", false},
                                         EndingCase{"invdot", "Tova2.ContainerNode", false}),
                         rowName);

TEST(SceneBuilderTest, AreaHoldsTextsBeyondThePage)
{
    Diagram diagram = smallDiagram();
    diagram.connectors[0].labels.texts = {textAt("far away", {400, 300}, 0)};
    const Rect area = SceneBuilder(diagram).build().area;
    EXPECT_GT(area.right(), 400);
    EXPECT_GT(area.bottom(), 300);
}

TEST(SceneBuilderTest, EmptyDiagramHasAnArea)
{
    const DiagramScene scene = SceneBuilder(Diagram{}).build();
    EXPECT_TRUE(scene.area.isValid());
    EXPECT_EQ(dumpScene(scene), "[]\n");
}

TEST(SceneBuilderTest, WantedGroundTakesThePlaceOfThePages)
{
    Diagram diagram = smallDiagram();
    diagram.page.figures = {boxFigure({0, 0, 200, 100})};
    const auto wanted = Vetra::Color::fromPacked(0x80ff0000);
    const DiagramScene plain = SceneBuilder(smallDiagram()).build();
    const DiagramScene built = SceneBuilder(diagram, wanted).build();
    EXPECT_EQ(built.scene->getBackground().getColor(), wanted);
    EXPECT_EQ(built.scene->getAllNodesCount(), plain.scene->getAllNodesCount());
    // A label lies on the colour as it shows on paper.
    const auto below = built.scene->getNodesAtScenePos({90, 38});
    EXPECT_TRUE(std::any_of(below.begin(), below.end(), [](const Tova2::Node& node) {
        return node.getFillColor().green() == 127;
    }));
}

TEST(TextFitterTest, SqueezesWhatIsTooWideAndStretchesNothing)
{
    const TextPiece free = textAt("some words", {100, 50}, 0);
    const double natural = TextFitter(free).rect().width;
    EXPECT_GT(natural, 40);
    const TextPiece tight = textAt("some words", {100, 50}, natural / 2);
    EXPECT_NEAR(TextFitter(tight).rect().width, natural / 2, 1e-9);
    EXPECT_NEAR(TextFitter(tight).rect().center().x, 100, 1e-9);
    const TextPiece loose = textAt("some words", {100, 50}, natural * 2);
    EXPECT_NEAR(TextFitter(loose).rect().width, natural, 1e-9);
}

TEST(TextFitterTest, NodeCoversTheRectangle)
{
    for (const char* words :
         {"plain", "\xe6\x97\xa5\xe6\x9c\xac", "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"}) {
        const TextPiece text = textAt(words, {100, 50}, 12);
        const TextFitter fitter(text);
        const auto node = fitter.makeNode({10, 10});
        const Rect rect = node.mapLocalRectToSceneRect(node.getGeometryRect());
        EXPECT_NEAR(rect.center().x, 90, 1) << words;
        EXPECT_NEAR(rect.width, fitter.rect().width, 1) << words;
    }
}

struct PageCase : NamedRow {
    Rect area;
    SizeWish wish;
    QSize size; ///< invalid: refused
    Rect target;
    bool shrunk;
};

class PageSizeTest : public testing::TestWithParam<PageCase> {};

TEST_P(PageSizeTest, HoldsTheArea)
{
    const PageCase& row = GetParam();
    const auto page = pageFor(row.area, row.wish, 1000, 250'000);
    ASSERT_EQ(page.has_value(), row.size.isValid());
    if (!page)
        return;
    EXPECT_EQ(page->shrunk, row.shrunk);
    EXPECT_EQ(page->size, row.size);
    EXPECT_NEAR(page->target.x, row.target.x, 1e-9);
    EXPECT_NEAR(page->target.width, row.target.width, 1e-9);
    EXPECT_NEAR(page->target.height, row.target.height, 1e-9);
    // The area takes as much of what is shown as the target does of the page.
    const Rect shown = shownOn(*page, row.area);
    EXPECT_NEAR(row.area.width / shown.width, row.target.width / row.size.width(), 1e-9);
    EXPECT_NEAR(row.area.center().x,
                shown.x + shown.width * page->target.center().x / row.size.width(), 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    PageSize, PageSizeTest,
    testing::Values(
        PageCase{"OneToOne", {0, 0, 99.5, 50}, {}, {100, 50}, {0, 0, 99.5, 50}, false},
        PageCase{"Scaled", {0, 0, 100, 50}, {2, {}}, {200, 100}, {0, 0, 200, 100}, false},
        PageCase{
            "TinyScaleKeepsAPixel", {0, 0, 100, 50}, {1e-6, {}}, {1, 1}, {0, 0, 1e-4, 5e-5}, false},
        PageCase{"FittedInTheMiddle",
                 {0, 0, 100, 50},
                 {0, {400, 100}},
                 {400, 100},
                 {100, 0, 200, 100},
                 false},
        PageCase{"WishedSideTooLong", {0, 0, 100, 1}, {11, {}}, {}, {}, false},
        PageCase{"WishedAreaTooLarge", {0, 0, 100, 100}, {6, {}}, {}, {}, false},
        PageCase{"WishedSizeTooLarge", {0, 0, 100, 100}, {0, {900, 900}}, {}, {}, false},
        PageCase{"TooLongShrinks", {0, 0, 2000, 10}, {}, {999, 5}, {0, 0, 999, 4.995}, true},
        PageCase{
            "TooLargeShrinks", {0, 0, 1000, 1000}, {}, {500, 500}, {0, 0, 499.5, 499.5}, true}),
    rowName);

} // namespace
} // namespace TovaView
