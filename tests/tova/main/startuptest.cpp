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

TEST(SwitchTest, AllAreListedThoughNothingOfTheLibraryIsUsed)
{
    std::vector<std::string> lines;
    for (const Host::SwitchReading& it : Host::listSwitches()) {
        EXPECT_EQ(it.kind == Host::SwitchKind::Feature, it.referenceNumber != 0);
        EXPECT_EQ(it.value, it.defaultValue);
        lines.push_back(it.name + '|' + it.description + '|' + it.sourceFile + '|' + it.group +
                        '|' + std::to_string(it.referenceNumber) + '|' + std::to_string(it.value));
    }
    EXPECT_THAT(
        lines,
        testing::ElementsAre(
            "FRMetafileVersionOverride|Ferro Feature: Export EMF only metafilen|emf/emfdevice|"
            "Ferro UI [Printing]|1009938|0",
            "InactiveWindowForToolTips|Show tooltips in inactive windows|events/testdriver|Tova|"
            "0|0",
            "MathGraphicsInRichAnnotations|MathGraphics support in Rich Text Annotations|"
            "nodes/richtextnodeimplstate|Oxstudio [Editors]|1222209|0",
            "MathGraphicsTextNode|MathGraphics mode of TextNode|nodes/textnode|"
            "Oxstudio [Editors]|1219252|0",
            "SegvLogging|Log user interactions in SEGV dialog|main/initialize|Ferro UI|1643416|1",
            "UseZeroOffsetForNewEditors|Use editor offset of 0 when it wasn't stored in the "
            "model|events/testdriver|Tova|0|0"));
}

} // namespace
