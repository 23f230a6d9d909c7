#include "support/rows.h"
#include "tova/nodes/containernode.h"
#include "tova/nodes/rectnode.h"
#include "vetra/error.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace {

using namespace Tova2;

/// A handle with a word of the test's choice.
struct RawHandle : Node {
    explicit RawHandle(std::uint64_t word) : Node(FactoryIndex{word}) {}
    bool isMade() const { return getImpl() != nullptr; }
};

constexpr std::uint64_t kEmptySlot = 511; // kinds register from slot 1 upwards

std::string keyOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Vetra::Error& error) {
        return error.group() + "/" + error.key();
    }
    return "";
}

struct HandleUse : NamedRow {
    std::function<void(Node&)> use;
};

const HandleUse harmlessUses[] = {
    {"IsVisible", [](Node& node) { EXPECT_FALSE(node.isVisible()); }},
    {"IsVisibleToScene", [](Node& node) { EXPECT_FALSE(node.isVisibleToScene()); }},
    {"Release", [](Node& node) { node.release(); }},
    {"RemoveAndRelease", [](Node& node) { node.removeAndRelease(); }},
    {"Move", [](Node& node) { Node moved(std::move(node)); }},
    {"MoveAssignment", [](Node& node) { Node{RectNode()} = std::move(node); }},
    {"Swap",
     [](Node& node) {
         Node other = RectNode();
         std::swap(node, other);
     }},
    {"SelfMove",
     [](Node& node) {
         Node& same = node;
         const bool wasValid = node.isValid();
         node = std::move(same);
         EXPECT_EQ(node.isValid(), wasValid);
     }},
};

const HandleUse resolvingUses[] = {
    {"HashValue", [](Node& node) { node.hashValue(); }},
    {"GetReferenced", [](Node& node) { node.getReferenced(); }},
    {"Isa", [](Node& node) { node.isa("Tova2.Node"); }},
    {"Remove", [](Node& node) { node.remove(); }},
    {"SetParent", [](Node& node) { node.setParent(Node()); }},
    {"GetChildren", [](Node& node) { node.getChildren(); }},
    {"GetScene", [](Node& node) { node.getScene(); }},
    {"GetPosition", [](Node& node) { node.getPosition(); }},
    {"SetZValue", [](Node& node) { node.setZValue(1); }},
    {"PlaceAbove", [](Node& node) { RectNode().placeAbove(node); }},
    {"ToTopOfSeveral", [](Node& node) { Node::toTop(std::vector(2, node)); }},
    {"GetDrawStyle", [](Node& node) { node.getDrawStyle(); }},
    {"AddTag", [](Node& node) { node.addTag(Vetra::StringID("tag")); }},
    {"Contains", [](Node& node) { node.contains(Vetra::GLPoint<double>{}); }},
    {"MapFromOther", [](Node& node) { RectNode().mapOtherNodeToLocal(node, Bounds()); }},
};

TEST(NodeHandleTest, HarmlessUsesNeverLookBehindTheWord)
{
    for (std::uint64_t word : {std::uint64_t(0), kEmptySlot}) {
        for (const HandleUse& row : harmlessUses) {
            RawHandle node(word);
            EXPECT_EQ(keyOf([&] { row.use(node); }), "") << row.name << " with word " << word;
        }
    }
}

TEST(NodeHandleTest, AllElseRaisesInvalidNodeWhereNothingCanBeMade)
{
    for (std::uint64_t word : {std::uint64_t(0), kEmptySlot}) {
        for (const HandleUse& row : resolvingUses) {
            RawHandle node(word);
            EXPECT_EQ(keyOf([&] { row.use(node); }), "tova:nodes/InvalidNode")
                << row.name << " with word " << word;
        }
    }
    const RawHandle empty(kEmptySlot);
    EXPECT_EQ(keyOf([&] { Node copy = empty; }), "tova:nodes/InvalidNode");
    EXPECT_EQ(keyOf([] { Node().guaranteeValid(); }), "tova:nodes/InvalidNode");
    EXPECT_EQ(keyOf([] { Node().guaranteeValid(false); }), "");
}

TEST(NodeHandleTest, TheBoundItselfIsNeverFollowed)
{
    RawHandle node(kMaxNodeImplFactories);
    EXPECT_TRUE(node.isMade());
    Node copy = node;
    copy = node;
    EXPECT_TRUE(copy == node);
    std::swap(copy, static_cast<Node&>(node));
    copy.release();
    EXPECT_FALSE(copy.isValid());
}

TEST(NodeHandleTest, AskingForVisibilityDoesNotMakeTheElement)
{
    const RectNode node;
    EXPECT_FALSE(node.isVisible());
    node.getPosition();
    EXPECT_TRUE(node.isVisible());
}

TEST(NodeHandleTest, CopiesOfAnUnmadeHandleShareOneElement)
{
    const RectNode original;
    RectNode copy = original;
    copy.setRect({1, 2, 3, 4});
    EXPECT_EQ(original.getRect(), copy.getRect());
    EXPECT_EQ(original, copy);
    EXPECT_FALSE(original == RectNode());
}

TEST(NodeHandleTest, AssigningAChildReachedThroughItsParentKeepsTheChild)
{
    Node walker = ContainerNode();
    {
        RectNode child({0, 0, 7, 7});
        child.setParent(walker);
    }
    walker = walker.getChildAt(0);
    EXPECT_TRUE(walker.isa("Tova2.RectNode"));
    EXPECT_EQ(walker.getWidth(), 7);
    EXPECT_FALSE(walker.getParent().isValid());
}

TEST(NodeHandleTest, ReferencesAreCountedThroughEveryRoad)
{
    RectNode node({0, 0, 1, 1});
    const auto* const element = node.getReferenced();
    {
        std::vector<Node> many;
        for (int i = 0; i < 100; ++i)
            many.push_back(node);
        EXPECT_EQ(element->referenceCount(), 101);
        Node& same = many.front();
        many.front() = same;
        std::swap(many[0], many[1]);
        many.erase(many.begin(), many.begin() + 50);
        Node moved = std::move(many.back());
        EXPECT_EQ(element->referenceCount(), 51);
    }
    EXPECT_EQ(element->referenceCount(), 1);
}

TEST(NodeHandleTest, TheEmptyHitTesterLetsInputThrough)
{
    RectNode node({0, 0, 10, 10});
    node.setFill(Fill(Vetra::Color()));
    ASSERT_TRUE(node.contains({5, 5}));
    node.setCustomHitTestFunctor(Node::EmptyHitTester::instance());
    EXPECT_FALSE(node.contains({5, 5}));
    EXPECT_FALSE(node.intersects(Vetra::GLRect<double>{0, 0, 10, 10}));
    EXPECT_TRUE(Node::EmptyHitTester::instance()->hitTestBounds(node, 9).isEmpty());
    node.setCustomHitTestFunctor(nullptr);
    EXPECT_TRUE(node.contains({5, 5}));
}

} // namespace
