#include "support/rows.h"
#include "temporaryfolder.h"

#include <gmock/gmock.h>

#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace TovaView {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

struct Outcome {
    int code = -1;
    std::string output, messages;
};

/// Runs the program as a user without a display does.
Outcome runViewer(const QStringList& arguments, const QString& folder = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    // Under a sanitizer the known leaks of the platform would be listed among the messages.
    const QString leaks = environment.value(QStringLiteral("LSAN_OPTIONS"));
    environment.insert(QStringLiteral("LSAN_OPTIONS"),
                       leaks + QStringLiteral(":print_suppressions=0"));
    process.setProcessEnvironment(environment);
    if (!folder.isEmpty())
        process.setWorkingDirectory(folder);
    process.start(QStringLiteral(TOVAVIEW_PROGRAM), arguments);
    EXPECT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

QString diagram(const char* name)
{
    return QStringLiteral(DIAGRAMS "/") + QLatin1String(name);
}

TEST(ProgramTest, HelpAndVersionNeedNothing)
{
    EXPECT_THAT(runViewer({QStringLiteral("--help")}).output, HasSubstr("--export"));
    EXPECT_THAT(runViewer({QStringLiteral("--version")}).output, testing::StartsWith("tovaview "));
}

TEST(ProgramTest, UsageErrorsExitWithTwo)
{
    EXPECT_EQ(runViewer({}).code, 2);
    EXPECT_EQ(
        runViewer({QStringLiteral("a.dot"), QStringLiteral("--scale"), QStringLiteral("0")}).code,
        2);
}

TEST(ProgramTest, FileErrorsAreOneLineAndExitWithOne)
{
    const TemporaryFolder folder;
    folder.write("bad.dot", "digraph {\n a -> ~\n}\n");
    folder.write("bad.plain", "graph 1 1 1\nnod\nstop\n");
    folder.write("empty.gv", "");
    folder.write("binary.dot", QByteArray("\0\1", 2));
    const std::pair<const char*, const char*> rows[] = {
        {"bad.dot", "bad.dot:2: syntax error near '~'"},
        {"bad.plain", "bad.plain:2: \"nod\" is no statement"},
        {"empty.gv", "empty.gv: is empty"},
        {"binary.dot", "binary.dot:1: is a binary file"},
        {"missing.dot", "missing.dot: cannot open"},
    };
    for (const auto& [file, complaint] : rows) {
        const Outcome outcome =
            runViewer({QLatin1String(file), QStringLiteral("--export"), QStringLiteral("out.png")},
                      folder.path("."));
        EXPECT_EQ(outcome.code, 1) << file;
        EXPECT_THAT(outcome.messages, HasSubstr(complaint));
        EXPECT_EQ(std::count(outcome.messages.begin(), outcome.messages.end(), '\n'), 1)
            << outcome.messages;
        EXPECT_FALSE(QFileInfo::exists(folder.path("out.png")));
    }
}

TEST(ProgramTest, ExportsEveryBundledDiagram)
{
    const TemporaryFolder folder;
    for (const char* name : {"statemachine.dot", "modules.dot", "profile.dot", "bootflow.dot",
                             "bootflow.plain", "modules.plain", "unicode.dot"}) {
        const QString picture = folder.path(name) + QStringLiteral(".png");
        const Outcome outcome = runViewer(
            {diagram(name), QStringLiteral("--size=640x480"), QStringLiteral("--export"), picture,
             QStringLiteral("--dump"), folder.path("dump.json"), QStringLiteral("--stats")});
        EXPECT_EQ(outcome.code, 0) << outcome.messages;
        EXPECT_EQ(QImage(picture).size(), QSize(640, 480)) << name;
        const QByteArray line = QByteArray::fromStdString(outcome.output);
        EXPECT_EQ(line.count('\n'), 1);
        EXPECT_GT(QJsonDocument::fromJson(line).object()[QLatin1String("nodes")].toInt(), 4)
            << name;
        EXPECT_TRUE(QFileInfo(folder.path("dump.json")).size() > 100);
    }
}

class DecoratorTest : public testing::TestWithParam<const char*> {};

TEST_P(DecoratorTest, ShowsInThePictureAndNotInTheCount)
{
    const TemporaryFolder folder;
    const auto draw = [&](const char* decorator) {
        const QString picture = folder.path(decorator) + QStringLiteral(".png");
        const Outcome outcome = runViewer({diagram("modules.plain"), QStringLiteral("--export"),
                                           picture, QStringLiteral("--decorator"),
                                           QLatin1String(decorator), QStringLiteral("--stats")});
        EXPECT_EQ(outcome.code, 0) << outcome.messages;
        EXPECT_THAT(outcome.output, HasSubstr("\"crossings\":1304,\"crossingsShown\":68,"));
        return QImage(picture);
    };
    EXPECT_NE(draw(GetParam()), draw("none"));
}

INSTANTIATE_TEST_SUITE_P(Program, DecoratorTest,
                         testing::Values("hop", "pin", "grad_pin", "light_pin"),
                         [](const auto& row) { return row.param; });

TEST(ProgramTest, InspectsTheNodeThatTheDumpTells)
{
    const auto inspect = [](const char* id) {
        return runViewer(
            {diagram("modules.plain"), QStringLiteral("--inspect"), QLatin1String(id)});
    };
    EXPECT_THAT(inspect("1").output, testing::StartsWith("Node: Tova2."));
    const Outcome none = inspect("999999");
    EXPECT_EQ(none.code, 1);
    EXPECT_THAT(none.messages, HasSubstr("has no node with id 999999"));
}

TEST(ProgramTest, WithoutADisplayWritesBesideAndSaysWhere)
{
    const TemporaryFolder folder;
    folder.write("a.dot", "digraph { a -> b }");
    const Outcome outcome = runViewer({QStringLiteral("a.dot")}, folder.path("."));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.messages, HasSubstr("a.dot.png"));
    EXPECT_FALSE(QImage(folder.path("a.dot.png")).isNull());
}

TEST(ProgramTest, SetsAndListsSwitches)
{
    const Outcome outcome =
        runViewer({QStringLiteral("--set"), QStringLiteral("SegvLogging=0"),
                   QStringLiteral("--set=MathGraphicsTextNode=-3"), QStringLiteral("--features")});
    EXPECT_EQ(outcome.code, 0) << outcome.messages;
    EXPECT_THAT(outcome.output,
                ContainsRegex("\nSegvLogging +0 +1 +0  Ferro UI +Log user interactions"));
    EXPECT_THAT(
        outcome.output,
        ContainsRegex("\nMathGraphicsTextNode +-3 +0 +0  Oxstudio .Editors. +MathGraphics"));
    EXPECT_THAT(outcome.output, ContainsRegex("\nRichTextToolBar +1 +1 +0\n"));
}

struct SettingCase : NamedRow {
    const char *setting, *complaint;
};

class BadSettingTest : public testing::TestWithParam<SettingCase> {};

TEST_P(BadSettingTest, IsRefusedInOneLine)
{
    const Outcome outcome = runViewer({QStringLiteral("--features"), QStringLiteral("--set"),
                                       QString::fromUtf8(GetParam().setting)});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.messages, std::string("tovaview: ") + GetParam().complaint + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Program, BadSettingTest,
    testing::Values(
        SettingCase{{"UnknownName"}, "Segv=1", "there is no switch Segv; --features lists them"},
        SettingCase{{"NoValue"},
                    "SegvLogging",
                    "--set needs NAME=VALUE with a whole number, not SegvLogging"},
        SettingCase{{"NoName"}, "=1", "--set needs NAME=VALUE with a whole number, not =1"},
        SettingCase{{"ValueWithRest"},
                    "SegvLogging=1x",
                    "--set needs NAME=VALUE with a whole number, not SegvLogging=1x"},
        SettingCase{{"ValueBeyondInt"},
                    "SegvLogging=2147483648",
                    "--set needs NAME=VALUE with a whole number, not SegvLogging=2147483648"}),
    rowName);

TEST(ProgramTest, CountersAreBackAtZeroInTheEnd)
{
    const Outcome outcome = runViewer(
        {diagram("modules.plain"), QStringLiteral("--inspect=1"), QStringLiteral("--counters")});
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    for (const char* name : {"Node:Node raw instance count", "Node:Node pool instance count",
                             "Scene:Nodes in scene", "Scene:Node offscreen repaint count"})
        EXPECT_THAT(outcome.output, ContainsRegex(std::string(name) + " +0\n"));
    EXPECT_THAT(outcome.output, ContainsRegex("Paths:Outlines built +[1-9]"));
}

TEST(ProgramTest, FullStandardOutputIsAnError)
{
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(TOVAVIEW_PROGRAM),
                  {diagram("bootflow.plain"), QStringLiteral("--stats")});
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitCode(), 1);
}

} // namespace
} // namespace TovaView
