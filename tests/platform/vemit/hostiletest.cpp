#include <gmock/gmock.h>

#include "vemit/emitter.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace Vemit {
namespace {

class Stage;

struct Ear : Listener {
    Ear(Stage& s, char n) : stage(s), name(n) {}
    void hear(int value);

    Stage& stage;
    char name;
    std::string padding = std::string(40, 'x'); // on the heap, so that a dead listener is noticed
};

/// Three listeners a, b, c on one emitter; b is the one that misbehaves, once.
class Stage {
public:
    explicit Stage(SendMode mode) : m_mode(mode)
    {
        emitter = std::make_unique<Emitter<int>>(mode);
        for (char name : {'a', 'b', 'c'}) {
            ears.push_back(std::make_unique<Ear>(*this, name));
            connections.push_back(connect(*ears.back()));
        }
    }
    Connection connect(Ear& ear) { return emitter->connect(&ear, &Ear::hear); }
    void renew() { emitter = std::make_unique<Emitter<int>>(m_mode); }
    void send(int value)
    {
        if (emitter)
            emitter->send(value);
        if (emitter)
            emitter->flush();
    }
    std::string heardOf(int value)
    {
        log.clear();
        try {
            send(value);
        } catch (int) {
        }
        return log;
    }

    std::unique_ptr<Emitter<int>> emitter;
    std::vector<std::unique_ptr<Ear>> ears;
    std::vector<Connection> connections;
    std::function<void(Stage&)> misdeed;
    std::string log;

private:
    SendMode m_mode;
};

void Ear::hear(int value)
{
    Stage& s = stage;
    s.log += name + std::to_string(value) + ' ';
    if (name == 'b' && s.misdeed)
        std::exchange(s.misdeed, nullptr)(s);
}

struct Hostile {
    const char* name;
    std::function<void(Stage&)> misdeed;
    const char* first;  // what is heard of the emission in which it happens
    const char* second; // and of the next one
};

void PrintTo(const Hostile& hostile, std::ostream* out)
{
    *out << hostile.name;
}

const Hostile hostiles[] = {
    {"DisconnectsItself", [](Stage& s) { s.connections[1].disconnect(); }, "a1 b1 c1 ", "a2 c2 "},
    {"DisconnectsTheEarlier", [](Stage& s) { s.connections[0].disconnect(); }, "a1 b1 c1 ",
     "b2 c2 "},
    {"DisconnectsTheLater", [](Stage& s) { s.connections[2].disconnect(); }, "a1 b1 ", "a2 b2 "},
    {"DisconnectsTheLaterByListener", [](Stage& s) { s.emitter->disconnect(s.ears[2].get()); },
     "a1 b1 ", "a2 b2 "},
    {"DisconnectsAll", [](Stage& s) { s.emitter->disconnectAll(); }, "a1 b1 ", ""},
    {"DestroysItself", [](Stage& s) { s.ears[1].reset(); }, "a1 b1 c1 ", "a2 c2 "},
    {"DestroysTheEarlier", [](Stage& s) { s.ears[0].reset(); }, "a1 b1 c1 ", "b2 c2 "},
    {"DestroysTheLater", [](Stage& s) { s.ears[2].reset(); }, "a1 b1 ", "a2 b2 "},
    {"DestroysAllListeners", [](Stage& s) { s.ears.clear(); }, "a1 b1 ", ""},
    {"DestroysTheEmitter", [](Stage& s) { s.emitter.reset(); }, "a1 b1 ", ""},
    {"DestroysEverything",
     [](Stage& s) {
         s.ears.clear();
         s.emitter.reset();
         s.connections.clear();
     },
     "a1 b1 ", ""},
    {"ReplacesTheEmitter",
     [](Stage& s) {
         s.renew();
         s.connect(*s.ears[0]);
     },
     "a1 b1 ", "a2 "},
    {"ConnectsManyMore",
     [](Stage& s) {
         for (int i = 0; i < 3; ++i)
             s.connect(*s.ears[0]);
     },
     "a1 b1 c1 ", "a2 b2 c2 a2 a2 a2 "},
    {"ConnectsAfterDisconnectingAll",
     [](Stage& s) {
         s.emitter->disconnectAll();
         s.connect(*s.ears[2]);
     },
     "a1 b1 ", "c2 "},
    {"Flushes", [](Stage& s) { s.emitter->flush(); }, "a1 b1 c1 ", "a2 b2 c2 "},
    {"Throws", [](Stage&) { throw 1; }, "a1 b1 ", "a2 b2 c2 "},
    {"ThrowsAfterDestroyingItself",
     [](Stage& s) {
         s.ears[1].reset();
         throw 1;
     },
     "a1 b1 ", "a2 c2 "},
    {"ThrowsAfterDestroyingTheEmitter",
     [](Stage& s) {
         s.emitter.reset();
         throw 1;
     },
     "a1 b1 ", ""},
};

class HostileTest : public testing::TestWithParam<std::tuple<Hostile, SendMode>> {};

TEST_P(HostileTest, LeavesADefinedState)
{
    const auto& [hostile, mode] = GetParam();
    Stage stage(mode);
    stage.misdeed = hostile.misdeed;
    EXPECT_EQ(stage.heardOf(1), hostile.first);
    EXPECT_EQ(stage.heardOf(2), hostile.second);
}

TEST_P(HostileTest, LeavesADefinedStateFromTwoEmissionsDeep)
{
    const auto& [hostile, mode] = GetParam();
    Stage stage(mode);
    stage.misdeed = [&stage, deed = hostile.misdeed](Stage& s) {
        s.misdeed = deed;
        s.send(3);
    };
    stage.heardOf(1);
    stage.heardOf(4); // held packets still wait, and the deed is done now
    stage.heardOf(5); // as are those that the deed kept from going out
    EXPECT_EQ(stage.heardOf(2), hostile.second);
}

/// The destructor of what was connected does the deed, when the connection ends.
TEST_P(HostileTest, LeavesADefinedStateFromADestructorOfACallable)
{
    const auto& [hostile, mode] = GetParam();
    if (std::string(hostile.name).starts_with("Throws"))
        return;
    for (const bool inside : {true, false}) {
        Stage stage(mode);
        std::shared_ptr<void> bomb(nullptr, [&](void*) { hostile.misdeed(stage); });
        Connection armed = stage.emitter->connect([bomb](int) {});
        bomb.reset();
        if (inside)
            stage.misdeed = [&armed](Stage&) { armed.disconnect(); };
        else
            armed.disconnect();
        stage.heardOf(1);
        EXPECT_EQ(stage.heardOf(2), hostile.second);
    }
}

std::string caseName(const testing::TestParamInfo<HostileTest::ParamType>& info)
{
    static const char* const modes[] = {"Held", "Queued", "Immediate"};
    const auto& [hostile, mode] = info.param;
    return std::string(hostile.name) + modes[static_cast<std::size_t>(mode)];
}

INSTANTIATE_TEST_SUITE_P(Emitter, HostileTest,
                         testing::Combine(testing::ValuesIn(hostiles),
                                          testing::Values(SendMode::Held, SendMode::Queued,
                                                          SendMode::Immediate)),
                         caseName);

TEST(HostilePacketTest, DestructorsOfPacketsMayDestroyTheEmitter)
{
    auto emitter = std::make_unique<Emitter<std::shared_ptr<int>>>(SendMode::Held);
    emitter->connect([](const std::shared_ptr<int>&) {});
    for (int i = 0; i < 3; ++i)
        emitter->send(std::shared_ptr<int>(new int, [&](int* p) {
            delete p;
            emitter.reset();
        }));
    emitter->flush();
    EXPECT_FALSE(emitter);
}

} // namespace
} // namespace Vemit
