#include <gmock/gmock.h>

#include "host/frfeature.h"
#include "host/frtestinghook.h"

#include "vetra/errorreporter.h"

#include <memory>
#include <stdexcept>

namespace Host {
namespace {

SwitchReading reading(const std::string& name)
{
    for (const SwitchReading& one : listSwitches()) {
        if (one.name == name)
            return one;
    }
    return {};
}

std::vector<int> told;

void tell(int value)
{
    told.push_back(value);
}

TEST(FeatureRegistryTest, ListsASwitchWhileItLivesAndCountsReadsOnly)
{
    {
        const FrFeature feature("Test", "Tests", "a/b", "Group", 7, -1, nullptr);
        EXPECT_EQ(feature.value() + feature.value(), -2);
        EXPECT_TRUE(setSwitch("Test", 3));
        EXPECT_EQ(readSwitch("Test"), 3);
        const SwitchReading known = reading("Test");
        EXPECT_EQ(known.description + known.sourceFile + known.group, "Testsa/bGroup");
        EXPECT_EQ(known.referenceNumber, 7);
        EXPECT_EQ(known.defaultValue, -1);
        EXPECT_EQ(known.value, 3);
        EXPECT_EQ(known.reads, 3);
    }
    EXPECT_TRUE(reading("Test").name.empty());
    EXPECT_FALSE(setSwitch("Test", 3));
    EXPECT_EQ(readSwitch("Test"), std::nullopt);
}

TEST(FeatureRegistryTest, CallsBackForChangesOnlyAndForEverySwitchOfTheName)
{
    told.clear();
    const FrFeature first("Twice", "", "", "", 0, 0, tell);
    const FrTestingHook second("Twice", "", "", "", 5, [](int value) { told.push_back(-value); });
    EXPECT_TRUE(setSwitch("Twice", 5));
    EXPECT_TRUE(setSwitch("Twice", 6));
    EXPECT_THAT(told, testing::ElementsAre(5, 6, -6));
}

TEST(FeatureRegistryTest, ACallbackMaySetItsSwitchDestroyItOrThrow)
{
    std::unique_ptr<FrTestingHook> hook;
    std::string reported;
    Vetra::setErrorReporter([&](std::exception_ptr error) {
        try {
            std::rethrow_exception(error);
        } catch (const std::runtime_error& e) {
            reported += e.what();
        }
    });
    hook = std::make_unique<FrTestingHook>("Own", "", "", "", 0, [&](int value) {
        setSwitch("Own", value + 1);
        EXPECT_EQ(hook->value(), value + 1);
        hook.reset();
        throw std::runtime_error("thrown");
    });
    EXPECT_TRUE(setSwitch("Own", 1));
    EXPECT_EQ(readSwitch("Own"), std::nullopt);
    EXPECT_EQ(reported, "thrown");
    Vetra::setErrorReporter({});
}

TEST(FeatureRegistryTest, APlainFeatureStaysAsItWasFirstMadeAndMayRefuse)
{
    told.clear();
    registerFeature(
        "Plain", 1, [](int value) { return value < 2; }, tell);
    EXPECT_TRUE(setSwitch("Plain", 0));
    EXPECT_FALSE(setSwitch("Plain", 2));
    registerFeature("Plain", 1, nullptr, nullptr);
    EXPECT_FALSE(setSwitch("Plain", 2));
    EXPECT_EQ(readSwitch("Plain"), 0);
    EXPECT_THAT(told, testing::ElementsAre(0));
}

} // namespace
} // namespace Host
