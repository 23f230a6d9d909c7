#include "dotlayout.h"
#include "diagramfile.h"
#include "temporaryfolder.h"

#include <gmock/gmock.h>

#include <QTest>

namespace TovaView {
namespace {

using testing::HasSubstr;

/// Stands in for dot: a shell script that sees dot's arguments.
class DotLayoutTest : public testing::Test {
protected:
    DotLayout layOutWith(const QByteArray& script, const QByteArray& text = "graph {}")
    {
        const QString program = m_folder.write("dot", "#!/bin/sh\n" + script, true);
        DotLimits limits;
        limits.milliseconds = 400;
        limits.outputBytes = 1000;
        return layOut(QStringLiteral("f.dot"), text, m_wish, limits, program);
    }

    static QByteArray unless(const char* option, const char* action)
    {
        return QByteArray("case \"$*\" in *") + option + "*) echo '{}';; *) " + action +
               ";; esac\n";
    }

    TemporaryFolder m_folder;
    LayoutControl m_control;
    LayoutWish m_wish{false, &m_control};
};

TEST_F(DotLayoutTest, FirstTriesRightAnglesUnlessTheFileAsksForOthers)
{
    const std::pair<const char*, bool> files[] = {
        {"graph {}", true},
        {"graph { splines=true }", true},
        {"graph { splines = \"true\" }", true},
        {"graph { splines=spline }", false},
        {"graph { splines = \"polyline\" }", false},
    };
    for (const auto& [text, straight] : files) {
        const DotLayout layout = layOutWith("cat >/dev/null; echo \"$@\"\n", text);
        EXPECT_EQ(layout.json.contains("-Gsplines=ortho"), straight) << text;
        EXPECT_TRUE(layout.notes.isEmpty()) << text;
    }
}

TEST_F(DotLayoutTest, WhoIsInAHurryGetsThePlacementByForces)
{
    m_control.hurry();
    const DotLayout layout = layOutWith(unless("sfdp", "sleep 60"));
    EXPECT_TRUE(layout.notes.isEmpty());
    EXPECT_THAT(m_control.stage().toStdString(), HasSubstr("by forces"));
    m_control.cancel();
    EXPECT_THROW(layOutWith("sleep 60\n"), LayoutCancelled);
}

TEST_F(DotLayoutTest, CrashLeadsToTheNextWayAndIsTold)
{
    const DotLayout layout = layOutWith(unless("splines=line", "kill -ABRT $$"));
    ASSERT_EQ(layout.notes.size(), 2);
    EXPECT_THAT(layout.notes[0].toStdString(), HasSubstr("crashed with right-angled connectors"));
    EXPECT_THAT(layout.notes[1].toStdString(), HasSubstr("trying straight connectors"));
}

TEST_F(DotLayoutTest, SlowRoutingKeepsThePlacement)
{
    const DotLayout layout = layOutWith(unless(
        "splines=line", "echo 'network simplex: 9 nodes 9 edges 9 iter 0.1 sec' >&2; sleep 60"));
    EXPECT_EQ(layout.notes.size(), 2);
}

TEST_F(DotLayoutTest, SlowPlacementSkipsToARougherOne)
{
    const DotLayout layout =
        layOutWith(unless("nslimit", "echo 'network simplex: 100 200' >&2; sleep 60"));
    ASSERT_EQ(layout.notes.size(), 1);
    EXPECT_THAT(layout.notes[0].toStdString(), HasSubstr("rougher placement"));
}

TEST_F(DotLayoutTest, TooMuchOutputIsStopped)
{
    const DotLayout layout = layOutWith(unless("splines=line", "yes; sleep 60"));
    EXPECT_THAT(layout.notes.join(QLatin1Char('\n')).toStdString(), HasSubstr("printed too much"));
}

TEST_F(DotLayoutTest, SyntaxErrorsAreNotTriedAgain)
{
    const QByteArray script =
        "echo x >> \"$0.count\"\n"
        "echo \"Error: <stdin>: syntax error in line 7 near '~'\" >&2; exit 1\n";
    EXPECT_EQ(complaintOf([&] { layOutWith(script); }), "f.dot:7: syntax error near '~'");
    EXPECT_EQ(QFile(m_folder.path("dot.count")).size(), 2);
}

TEST_F(DotLayoutTest, KillsWhatItsChildStarted)
{
    const QByteArray script = "sleep 1000 & echo $! > \"$0.pid\"; wait\n";
    EXPECT_THAT(complaintOf([&] { layOutWith(script); }), HasSubstr("cannot lay it out"));
    QFile file(m_folder.path("dot.pid"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString path = QStringLiteral("/proc/%1/stat").arg(file.readAll().trimmed().toInt());
    const auto isGone = [&] {
        QFile process(path); // a zombie is what nobody has collected yet
        return !process.open(QIODevice::ReadOnly) || process.readAll().contains(") Z");
    };
    EXPECT_TRUE(QTest::qWaitFor(isGone));
}

TEST_F(DotLayoutTest, WarningsAreNotes)
{
    const DotLayout layout =
        layOutWith("echo 'Warning: odd' >&2; echo 'Warning: odd' >&2; echo '{}'\n");
    EXPECT_EQ(layout.notes, QStringList{QStringLiteral("Warning: odd")});
}

TEST_F(DotLayoutTest, FamiliesAreThoseThatDotMeasuredWith)
{
    const DotLayout layout = layOutWith("echo 'fontname: \"Helvetica\" resolved to: (ps:pango  "
                                        "Sans, ) (Fc) \"Nimbus Sans, Regular\" /x' >&2;"
                                        "echo '{}'\n");
    EXPECT_EQ(layout.families[QStringLiteral("Helvetica")], QStringLiteral("Nimbus Sans"));
}

TEST(DotProgramTest, MissingProgramNamesItsPackage)
{
    const auto run = [] {
        layOut(QStringLiteral("f.dot"), "graph {}", {}, {}, QStringLiteral("no-such-dot"));
    };
    EXPECT_THAT(complaintOf(run), HasSubstr("package graphviz"));
}

TEST(DotProgramTest, DiagramCannotMakeItReadFiles)
{
    const TemporaryFolder folder;
    const QString image = folder.write("secret.png", "no image");
    const QString path = folder.write(
        "a.dot", "digraph { a [image=\"" + image.toUtf8() + "\", label=<<table><tr><td><img src='" +
                     image.toUtf8() + "'/></td><td>text</td></tr></table>>] }");
    QStringList notes;
    const Diagram diagram = readDiagram(path, notes);
    EXPECT_EQ(diagram.blocks.size(), 1u);
    EXPECT_THAT(notes.join(QLatin1Char('\n')).toStdString(),
                testing::EndsWith("pictures that it names are not read"));
}

TEST(DotProgramTest, ReadsOddNamesAndEncodings)
{
    const TemporaryFolder folder;
    const QString path = folder.write(
        "-Tpng -o x.dot", "digraph { graph [charset=latin1] a [label=\"caf\xe9 &szlig;\"] }");
    QStringList notes;
    const Diagram diagram = readDiagram(path, notes);
    EXPECT_EQ(diagram.blocks.at(0).drawing.texts.at(0).text,
              QString::fromUtf8("caf\xc3\xa9 \xc3\x9f"));
    EXPECT_TRUE(notes.isEmpty()) << notes.join(QLatin1Char('\n')).toStdString();
}

TEST(DotProgramTest, MalformedLabelIsAnError)
{
    const TemporaryFolder folder;
    const QString path = folder.write("a.dot", "digraph { a [label=<<b>x>] }");
    QStringList notes;
    EXPECT_THAT(complaintOf([&] { readDiagram(path, notes); }), HasSubstr("in label of node a"));
}

} // namespace
} // namespace TovaView
