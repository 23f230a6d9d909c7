#include "support/rows.h"
#include "tova/tova.h"

#include <gmock/gmock.h>

using namespace Tova2;
using testing::HasSubstr;

namespace {

using Points = std::vector<Vetra::GLPoint<double>>;

std::string addressOf(const Node& node)
{
    std::ostringstream out;
    out << static_cast<const void*>(node.getReferenced());
    return out.str();
}

TEST(NodeInspectorTest, TellsPlaceLooksAndTree)
{
    auto scene = Scene::createScene();
    ContainerNode parent;
    scene->addNode(parent);
    RectNode rect({0, 0, 10, 5});
    rect.setParent(parent);
    rect.setPosition({100, 0.5});
    rect.setStroke(Stroke::NoStroke());
    rect.setFill(Fill(Vetra::Color(1, 0, 0, 1)));
    rect.addTag(Vetra::StringID("a\nb"));
    parent.setVisible(false);
    EXPECT_EQ(inspectorText(rect), "Node: Tova2.RectNode " + addressOf(rect) +
                                       "\nParent: Tova2.ContainerNode " + addressOf(parent) +
                                       "\nScene: yes\nPosition: (100, 0.5)"
                                       "\nBounds: (0, 0) 10 x 5\nScene Bounds: (100, 0.5) 10 x 5"
                                       "\nZ: 2\nVisible: yes, to scene no\nOpacity: 1"
                                       "\nStroke: none\nFill: #ffff0000\nAntialiased: no"
                                       "\nTags: 1\n    \"a?b\"\nChildren: 0\n");
    EXPECT_EQ(inspectorText({}), "Node: none\n");
}

TEST(NodeInspectorTest, ListsThePathsCrossings)
{
    auto scene = Scene::createScene();
    OpenLinearPathNode across(Points{{0, 50}, {100, 50}}), down(Points{{30, 10}, {30, 100}});
    scene->addNode(across);
    EXPECT_THAT(inspectorText(across), HasSubstr("\nPath Intersections: 0\n"));
    scene->addNode(down);
    scene->setPathIntersectionsEnabled(true);
    scene->findPathIntersections();
    EXPECT_THAT(inspectorText(across),
                HasSubstr("\nPath Intersections: 1\n    (30, 50), role 1, other "
                          "Tova2.OpenLinearPathNode " +
                          addressOf(down) + ", clearance 40 30 50 70\n"));
    EXPECT_THAT(inspectorText(down), HasSubstr("\n    (30, 50), role 0, other "));
}

struct KindCase : NamedRow {
    Node (*make)();
    const char* line;
};
class NodeInspectorKindTest : public testing::TestWithParam<KindCase> {};

TEST_P(NodeInspectorKindTest, TellsWhatItsKindHas)
{
    EXPECT_THAT(inspectorText(GetParam().make()), HasSubstr(GetParam().line));
}

Node decorated()
{
    LineNode line({0, 0}, {9, 0});
    line.setEndDecoration(LineEndings::createDot(line.getStroke(), 4));
    return line;
}

Node striped()
{
    CurvedPathNode curve({{{0, 0}, {1, 2}, {}}, {{9, 0}, {}, {0, 3}}});
    curve.setStrokes({Stroke(StrokeStyle::DashLine)});
    return curve;
}

Node text(const std::string& words)
{
    TextNode node;
    node.setText(words);
    return node;
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, NodeInspectorKindTest,
    testing::Values(KindCase{"RoundedRect",
                             [] {
                                 return Node(RoundedRectNode({0, 0, 9, 9}, 2.5));
                             },
                             "\nRadius: 2.5\n"},
                    KindCase{"Decoration", decorated, " at (9, 0), rotation 0, backoff 2\n"},
                    KindCase{"Vertices", striped,
                             "\n    (9, 0), forward (0, 0), backward (0, 3)\n"},
                    KindCase{"Strokes", striped, "\nStrokes: 1\n    dashed #ff000000, width 0\n"},
                    KindCase{"Corners", [] { return Node(OpenLinearPathNode()); },
                             "\nCorners: sharp, radius 4\n"},
                    KindCase{"LongListIsCut", [] { return Node(LinearPathNode(Points(1000))); },
                             "\nPoints: 1000\n    (0, 0)\n"},
                    KindCase{"LongListEnds", [] { return Node(LinearPathNode(Points(1000))); },
                             "(0, 0)\n    ...\nPath"},
                    KindCase{"TextStaysOnItsLine", [] { return text("a\n\"b\""); },
                             "\nText: \"a?\\\"b\\\"\"\n"},
                    KindCase{"LongTextIsCutBetweenCharacters",
                             [] { return text(std::string(199, 'x') + "\xc3\xa4y"); }, "x\"...\n"},
                    KindCase{"Custom", [] { return Node(CustomNode()); }, "\nPainter: none\n"}),
    rowName);

} // namespace
