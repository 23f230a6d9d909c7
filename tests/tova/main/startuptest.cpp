#include "support/rows.h"

#include "host/featureregistry.h"

#include <gmock/gmock.h>

#include <QProcess>

#include <algorithm>

namespace {

/// What a process that takes these steps tells of itself; a crash shows as well.
std::string play(const std::string& steps)
{
    QProcess process;
    process.start(QStringLiteral(STARTUP_HOST), {QString::fromStdString(steps)});
    EXPECT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().trimmed().toStdString();
}

/// The rules in small: each call counts once, and the registry knows only what has been started.
std::string expected(const std::string& steps)
{
    bool isInitialized = false, isTerminated = false, isRegistered = false, isRunning = false;
    std::string told = "switches6";
    const auto terminate = [&] {
        if (std::exchange(isTerminated, true))
            return;
        isRegistered = false;
        told += std::exchange(isRunning, false) ? " end" : "";
    };
    for (const char step : steps + 'x') {
        if (step == 'i' && !std::exchange(isInitialized, true)) {
            isRunning = isRegistered = true;
            told += " start";
        }
        if (step == 'x')
            told += " exit";
        if (step == 't' || (step != 'i' && step != 'u' && std::exchange(isRegistered, false)))
            terminate();
    }
    return told + " left0 switches" + (isInitialized ? "7" : "6");
}

TEST(StartUpTest, AnyOrderOfStartEndWalkAndUseOnceAndTwice)
{
    std::string steps = "ituw";
    std::sort(steps.begin(), steps.end());
    do {
        EXPECT_EQ(play(steps), expected(steps)) << steps;
        EXPECT_EQ(play(steps + steps), expected(steps + steps)) << steps << " twice";
    } while (std::next_permutation(steps.begin(), steps.end()));
}

struct LifeCase : NamedRow {
    const char* steps;
    const char* told;
};

class LifeTest : public testing::TestWithParam<LifeCase> {};

TEST_P(LifeTest, EndsWithNothingLeft)
{
    EXPECT_EQ(play(GetParam().steps), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    StartUp, LifeTest,
    testing::Values(
        LifeCase{{"NeverStarted"}, "u", "switches6 exit left0 switches6"},
        LifeCase{{"EndedByTheEndOfTheProcess"}, "iu", "switches6 start exit end left0 switches7"},
        LifeCase{
            {"EndedInTheWalkByAYoungerObject"}, "iWwu", "switches6 start end exit left0 switches7"},
        LifeCase{
            {"EndedInTheWalkByAnOlderObject"}, "Wiwu", "switches6 start end exit left0 switches7"},
        LifeCase{{"FailuresAreCollectedAndTheRestIsDone"},
                 "FiLiut",
                 "switches6 vetra:errors/Unknown: failed vetra:errors/Unknown: failed logs silent "
                 "silent reads3 exit left0 switches7"},
        LifeCase{{"ServicesMayCallBack"}, "Riutw", "switches6 start end exit left0 switches7"},
        LifeCase{
            {"NothingBeforeTheStartAndNoSceneAfterTheApplication"},
            "L",
            "switches6 silent silent silent reads0 exit NoSceneWhenDisplayOff left0 switches6"}),
    rowName);

struct SwitchCase : NamedRow {
    const char *description, *sourceFile, *group;
    int referenceNumber, defaultValue;
};

class SwitchTest : public testing::TestWithParam<SwitchCase> {};

TEST_P(SwitchTest, IsListedThoughNothingOfTheLibraryIsUsed)
{
    const auto all = Host::listSwitches();
    const auto found = std::find_if(all.begin(), all.end(), [](const auto& reading) {
        return reading.name == GetParam().name;
    });
    ASSERT_NE(found, all.end());
    EXPECT_EQ(found->kind, GetParam().referenceNumber ? Host::SwitchKind::Feature
                                                      : Host::SwitchKind::TestingHook);
    EXPECT_EQ(found->description, GetParam().description);
    EXPECT_EQ(found->sourceFile, GetParam().sourceFile);
    EXPECT_EQ(found->group, GetParam().group);
    EXPECT_EQ(found->referenceNumber, GetParam().referenceNumber);
    EXPECT_EQ(found->defaultValue, GetParam().defaultValue);
    EXPECT_EQ(found->value, GetParam().defaultValue);
}

INSTANTIATE_TEST_SUITE_P(
    StartUp, SwitchTest,
    testing::Values(SwitchCase{{"FRMetafileVersionOverride"},
                               "Ferro Feature: Export EMF only metafilen",
                               "emf/emfdevice",
                               "Ferro UI [Printing]",
                               1009938,
                               0},
                    SwitchCase{{"SegvLogging"},
                               "Log user interactions in SEGV dialog",
                               "main/initialize",
                               "Ferro UI",
                               1643416,
                               1},
                    SwitchCase{{"MathGraphicsInRichAnnotations"},
                               "MathGraphics support in Rich Text Annotations",
                               "nodes/richtextnodeimplstate",
                               "Oxstudio [Editors]",
                               1222209,
                               0},
                    SwitchCase{{"MathGraphicsTextNode"},
                               "MathGraphics mode of TextNode",
                               "nodes/textnode",
                               "Oxstudio [Editors]",
                               1219252,
                               0},
                    SwitchCase{{"InactiveWindowForToolTips"},
                               "Show tooltips in inactive windows",
                               "events/testdriver",
                               "Tova",
                               0,
                               0},
                    SwitchCase{{"UseZeroOffsetForNewEditors"},
                               "Use editor offset of 0 when it wasn't stored in the model",
                               "events/testdriver",
                               "Tova",
                               0,
                               0}),
    rowName);

} // namespace
