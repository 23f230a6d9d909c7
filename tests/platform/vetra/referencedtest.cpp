#include "vetra/referenced.h"

#include "support.h"

namespace Vetra {
namespace {

class Chained : public Referenced {
public:
    explicit Chained(int& alive) : m_alive(alive) { ++m_alive; }
    Holder<Chained> next;

protected:
    ~Chained() override { --m_alive; }

private:
    int& m_alive;
};

TEST(HolderTest, AssigningAChildOfTheReleasedObjectIsSafe)
{
    int alive = 0;
    Holder<Chained> head(new Chained(alive));
    head->next = Holder<Chained>(new Chained(alive));
    head = head->next;
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(head->referenceCount(), 1);
}

TEST(HolderTest, SelfAssignmentAndSelfMoveKeepTheObject)
{
    int alive = 0;
    Holder<Chained> holder(new Chained(alive));
    auto& same = holder;
    holder = same;
    EXPECT_EQ(holder->referenceCount(), 1);
    holder = std::move(same);
    EXPECT_EQ(alive, 1);
    holder.reset();
    holder.reset();
    EXPECT_EQ(alive, 0);
}

TEST(HolderTest, WidensToItsBase)
{
    int alive = 0;
    {
        const Holder<Chained> derived(new Chained(alive));
        const Holder<Referenced> base = derived;
        EXPECT_EQ(base->referenceCount(), 2);
    }
    EXPECT_EQ(alive, 0);
}

} // namespace
} // namespace Vetra
