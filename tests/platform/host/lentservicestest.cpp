#include <gmock/gmock.h>

#include "host/debuginteractionlogger.h"
#include "host/editorframework.h"
#include "host/mathgraphics.h"

#include "vetra/errorholder.h"

#include <stdexcept>

namespace Host {
namespace {

TEST(EditorFrameworkTest, OneThatFailsIsEndedByItsOwnEnd)
{
    std::string log;
    setEditorFramework({[&](Vetra::ErrorHolder& errors) {
                            errors.add(Vetra::Error("a", "b"));
                            throw std::runtime_error("thrown");
                        },
                        [&] { log += "end "; }});
    Vetra::ErrorHolder errors;
    initialize_oxstudio(errors);
    initialize_oxstudio(errors);
    ASSERT_EQ(errors.errors().size(), 2u);
    EXPECT_STREQ(errors.errors()[1].what(), "vetra:errors/Unknown: thrown");
    setEditorFramework({});
    terminate_oxstudio();
    terminate_oxstudio();
    EXPECT_EQ(log, "end ");
}

TEST(MathGraphicsTest, IsReadyOnlyAfterAStartThatSucceeds)
{
    int starts = 0;
    MathGraphics::initialize_math_graphics_kernel();
    EXPECT_FALSE(MathGraphics::isKernelReady());
    MathGraphics::setKernel([&] {
        if (++starts == 1)
            throw std::runtime_error("thrown");
    });
    EXPECT_THROW(MathGraphics::initialize_math_graphics_kernel(), std::runtime_error);
    EXPECT_FALSE(MathGraphics::isKernelReady());
    MathGraphics::initialize_math_graphics_kernel();
    MathGraphics::initialize_math_graphics_kernel();
    EXPECT_TRUE(MathGraphics::isKernelReady());
    EXPECT_EQ(starts, 2);
    MathGraphics::setKernel({});
}

TEST(DebugInteractionLoggerTest, KeepsTheLastWhileTheCheckerSaysSo)
{
    auto& logger = DebugInteractionLogger::instance();
    logger.log("unasked");
    bool isOn = true;
    logger.setFeatureStateChecker([&] { return isOn; });
    for (std::size_t i = 0; i <= DebugInteractionLogger::MostInteractions; ++i)
        logger.log("press " + std::to_string(i));
    isOn = false;
    logger.log("off");
    EXPECT_EQ(logger.interactions().size(), DebugInteractionLogger::MostInteractions);
    EXPECT_EQ(logger.interactions().front(), "press 1");
    EXPECT_EQ(logger.interactions().back(), "press 100");
    logger.setFeatureStateChecker({});
    logger.clear();
}

} // namespace
} // namespace Host
