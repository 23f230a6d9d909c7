#include "tova/nodes/weakref.h"
#include "tova/nodes/compositenode.h"
#include "tova/nodes/rectnode.h"

#include <gmock/gmock.h>

#include <unordered_set>

namespace Tova2 {

namespace {

RectNode makeRect()
{
    RectNode node;
    node.setOpacity(0.5); // makes the element
    return node;
}

TEST(WeakRefTest, FollowsTheElementNotTheHandle)
{
    Node second;
    WeakRef ref;
    {
        const RectNode first = makeRect();
        second = first;
        ref = WeakRef(first);
    }
    EXPECT_TRUE(ref.isValid());
    EXPECT_EQ(ref.getNode(), second);
    second.release();
    EXPECT_FALSE(ref.isValid());
    EXPECT_FALSE(ref.getNode().isValid());
}

TEST(WeakRefTest, AParentHoldsWhatIsReferred)
{
    CompositeNode parent;
    RectNode child = makeRect();
    child.setParent(parent);
    const WeakRef ref(child);
    child.release();
    EXPECT_TRUE(ref.isValid());
    parent.release();
    EXPECT_FALSE(ref.isValid());
}

TEST(WeakRefTest, EqualityAndHashOutliveTheElement)
{
    RectNode node = makeRect();
    const WeakRef one(node), two(node);
    const std::size_t hash = hash_value(one);
    node.release();
    EXPECT_EQ(one, two);
    EXPECT_EQ(hash_value(one), hash);
    EXPECT_EQ(hash_value(two), hash);
    EXPECT_NE(one, WeakRef());
}

TEST(WeakRefTest, ANewElementAtTheSameAddressIsAnother)
{
    std::unordered_set<WeakRef> seen;
    std::unordered_set<const void*> addresses;
    constexpr std::size_t kCount = 3000; // debug builds withhold the blocks of 1000 dead nodes
    for (std::size_t i = 0; i < kCount; ++i) {
        const RectNode node = makeRect();
        EXPECT_TRUE(seen.insert(WeakRef(node)).second) << i;
        addresses.insert(node.getReferenced());
    }
#if !defined(TOVA_SANITIZED) // which withholds more
    EXPECT_LT(addresses.size(), kCount) << "no address came twice: the test proves nothing";
#endif
}

TEST(WeakRefTest, AnEmptyHandleGivesAnEmptyReference)
{
    EXPECT_EQ(WeakRef(Node()), WeakRef());
    EXPECT_FALSE(WeakRef(Node()).isValid());
    RectNode lazy; // a handle whose element is still to be made
    EXPECT_TRUE(WeakRef(lazy).isValid());
}

} // namespace

} // namespace Tova2
