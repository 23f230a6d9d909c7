#include <gmock/gmock.h>

#include "host/shutdownregistry.h"

#include "vetra/errorreporter.h"

#include <stdexcept>

namespace Host {
namespace {

class ShutdownRegistryTest : public testing::Test {
protected:
    void add(const std::string& name, const std::function<void()>& then = {})
    {
        all.registerObject(std::make_shared<ShutdownObject>(name, [this, name, then] {
            log += name;
            if (then)
                then();
        }));
    }

    ShutdownRegistry& all = ShutdownRegistry::instance();
    std::string log;
};

TEST_F(ShutdownRegistryTest, CallsTheYoungestFirstAndEachOnce)
{
    add("a", [this] { all.shutDown(); });
    add("b", [this] { all.shutDown(); });
    add("c");
    add("b", [this] { add("later"); });
    all.registerObject(nullptr);
    all.shutDown();
    EXPECT_EQ(log, "bcalater");
    all.shutDown();
    EXPECT_EQ(log, "bcalater");
}

TEST_F(ShutdownRegistryTest, LeavesOutWhatIsUnregisteredInTheWalk)
{
    add("a");
    add("b");
    add("c", [this] {
        EXPECT_TRUE(all.unregisterObject("b"));
        EXPECT_FALSE(all.isRegistered("c"));
        throw std::runtime_error("thrown");
    });
    int reported = 0;
    Vetra::setErrorReporter([&](std::exception_ptr) { ++reported; });
    all.shutDown();
    Vetra::setErrorReporter({});
    EXPECT_EQ(log, "ca");
    EXPECT_EQ(reported, 1);
}

} // namespace
} // namespace Host
