#include <gmock/gmock.h>

#include "vemit/emitter.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Vemit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(sizeof(Emitter<int>) == sizeof(void*) && sizeof(Listener) == sizeof(void*));
static_assert(!std::is_copy_constructible_v<Emitter<>> && !std::is_move_constructible_v<Emitter<>>);

// A header may declare an emitter of a type that it only names.
struct Unknown;
static_assert(sizeof(Emitter<const Unknown&, Unknown*>) == sizeof(void*));

struct Ear : Listener {
    void hear(int value) { heard.push_back(value); }
    std::vector<int> heard;
};

struct Shape {
    virtual ~Shape() = default;
    virtual char kind() const { return 's'; }
};
struct Circle : Shape {
    char kind() const override { return 'c'; }
};

TEST(EmitterTest, ModesTravelWithTheAddressInOneWord)
{
    for (const auto send : {SendMode::Held, SendMode::Queued, SendMode::Immediate}) {
        for (const auto drop : {DropMode::Never, DropMode::WhileBusy}) {
            Emitter<int> emitter(send, drop);
            const Connection connection = emitter.connect([](int) {});
            EXPECT_EQ(emitter.sendMode(), send);
            EXPECT_EQ(emitter.dropMode(), drop);
            Connection(connection).disconnect();
            EXPECT_EQ(emitter.sendMode(), send);
            EXPECT_EQ(emitter.dropMode(), drop);
        }
    }
    const Emitter<> odd(static_cast<SendMode>(77), static_cast<DropMode>(77));
    EXPECT_EQ(odd.sendMode(), SendMode::Immediate);
    EXPECT_EQ(odd.dropMode(), DropMode::Never);
}

TEST(EmitterTest, NullEndsAreNotConnected)
{
    Emitter<int> emitter;
    Ear ear;
    void (Ear::*noMember)(int) = nullptr;
    void (*noFunction)(int) = nullptr;
    EXPECT_FALSE(emitter.connect(static_cast<Ear*>(nullptr), &Ear::hear).connected());
    EXPECT_FALSE(emitter.connect(&ear, noMember).connected());
    EXPECT_FALSE(emitter.connect(noFunction).connected());
    EXPECT_FALSE(emitter.connect(std::function<void(int)>()).connected());
    emitter.disconnect(nullptr);
    Connection().disconnect();
    EXPECT_FALSE(emitter.hasListeners());
}

TEST(EmitterTest, ListenerLeavesAllItsEmittersAndCopiesStartAlone)
{
    Emitter<int> first;
    Emitter<int> second;
    auto ear = std::make_unique<Ear>();
    first.connect(ear.get(), &Ear::hear);
    second.connect(ear.get(), &Ear::hear);
    second.connect(ear.get(), [e = ear.get()](int value) { e->hear(-value); });
    const auto copy = std::make_unique<Ear>(*ear);
    second.send(4);
    EXPECT_THAT(ear->heard, ElementsAre(4, -4));
    EXPECT_THAT(copy->heard, IsEmpty());
    second.disconnect(copy.get());
    EXPECT_EQ(second.listenerCount(), 2U);
    ear.reset();
    EXPECT_FALSE(first.hasListeners() || second.hasListeners());
}

TEST(EmitterTest, CapturesDieWithTheConnectionNotWithItsHandle)
{
    const auto token = std::make_shared<int>();
    Emitter<> emitter;
    Connection kept = emitter.connect([token] {});
    kept.disconnect();
    EXPECT_EQ(token.use_count(), 1);
    {
        Emitter<> brief;
        kept = brief.connect([token] {});
    }
    EXPECT_FALSE(kept.connected());
    EXPECT_EQ(token.use_count(), 1);
}

TEST(EmitterTest, CapturesMayOwnTheirHandleAndConnectAnewWhileTheEmitterDies)
{
    Emitter<> emitter;
    auto own = std::make_shared<Connection>();
    *own = emitter.connect([own] {});
    Connection* const raw = std::exchange(own, nullptr).get();
    raw->disconnect();
    EXPECT_FALSE(emitter.hasListeners());
    emitter.connect([again = std::shared_ptr<void>(nullptr, [&emitter](void*) {
                         emitter.connect([] {}); // a leak, if it is not ended in its turn
                     })] {});
}

static_assert(Detail::canWait<Shape*> && Detail::canWait<const std::string&>);
static_assert(!Detail::canWait<const Shape&>, "its copy would be a slice");
static_assert(!Detail::canWait<const std::unique_ptr<int>&> && !Detail::canWait<bool&>);

TEST(EmitterTest, ReferencesReachTheCallersObject)
{
    Emitter<const Shape&, std::unique_ptr<int>&, bool&> query(SendMode::Held);
    query.connect([](const Shape& shape, std::unique_ptr<int>& number, bool& answer) {
        answer = shape.kind() == 'c' && *number == 7;
    });
    auto number = std::make_unique<int>(7);
    bool answer = false;
    query.send(Circle(), number, answer);
    EXPECT_TRUE(answer);
}

struct ModeCase {
    const char* name;
    SendMode send;
    DropMode drop;
    std::vector<std::string> sent;    // heard by two listeners, the first of which answers 1 with 2
    std::vector<std::string> flushed; // after a send of 5 more and a flush
};
class ModeTest : public testing::TestWithParam<ModeCase> {};

TEST_P(ModeTest, DecidesWhenAnAnswerIsHeard)
{
    std::vector<std::string> log;
    Emitter<const std::string&> emitter(GetParam().send, GetParam().drop);
    emitter.send("nobody listens");
    emitter.connect([&](const std::string& text) {
        log.push_back("a" + text);
        if (text == "1")
            emitter.send(std::string("2"));
        emitter.flush();
    });
    emitter.connect([&](const std::string& text) { log.push_back("b" + text); });
    emitter.send("1");
    EXPECT_EQ(log, GetParam().sent);
    emitter.send("5");
    emitter.flush();
    EXPECT_EQ(log, GetParam().flushed);
}

std::string caseName(const testing::TestParamInfo<ModeCase>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Emitter, ModeTest,
    testing::Values(
        ModeCase{"ImmediateRunsTheAnswerInside",
                 SendMode::Immediate,
                 DropMode::Never,
                 {"a1", "a2", "b2", "b1"},
                 {"a1", "a2", "b2", "b1", "a5", "b5"}},
        ModeCase{"ImmediateDropsTheAnswer",
                 SendMode::Immediate,
                 DropMode::WhileBusy,
                 {"a1", "b1"},
                 {"a1", "b1", "a5", "b5"}},
        ModeCase{"QueuedRunsTheAnswerAfterwards",
                 SendMode::Queued,
                 DropMode::Never,
                 {"a1", "b1", "a2", "b2"},
                 {"a1", "b1", "a2", "b2", "a5", "b5"}},
        ModeCase{"QueuedDropsTheAnswer",
                 SendMode::Queued,
                 DropMode::WhileBusy,
                 {"a1", "b1"},
                 {"a1", "b1", "a5", "b5"}},
        ModeCase{"HeldKeepsTheAnswerForTheNextFlush",
                 SendMode::Held,
                 DropMode::Never,
                 {},
                 {"a1", "b1", "a5", "b5"}},
        ModeCase{"HeldMergesIntoTheFirst", SendMode::Held, DropMode::WhileBusy, {}, {"a1", "b1"}}),
    caseName);

TEST(EmitterTest, PacketsBehindAnExceptionGoOutFirst)
{
    std::vector<int> log;
    Emitter<int> emitter(SendMode::Queued);
    emitter.connect([&](int value) {
        log.push_back(value);
        if (value == 1) {
            emitter.send(2);
            throw std::runtime_error("first");
        }
    });
    EXPECT_THROW(emitter.send(1), std::runtime_error);
    EXPECT_THAT(log, ElementsAre(1));
    emitter.send(3);
    EXPECT_THAT(log, ElementsAre(1, 2, 3));
}

} // namespace
} // namespace Vemit
