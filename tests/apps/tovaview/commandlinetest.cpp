#include "commandline.h"
#include "support/rows.h"

#include <gtest/gtest.h>

namespace TovaView {
namespace {

struct FaultCase : NamedRow {
    QStringList arguments;
    const char* complaint;
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

class CommandLineFaultTest : public testing::TestWithParam<FaultCase> {};

TEST_P(CommandLineFaultTest, IsNamed)
{
    const Options options = parseArguments(GetParam().arguments);
    EXPECT_TRUE(options.error.contains(QLatin1String(GetParam().complaint)))
        << options.error.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, CommandLineFaultTest,
    testing::Values(
        FaultCase{"NoFile", words("--stats"), "no file"},
        FaultCase{"TwoFiles", words("a.dot b.dot"), "b.dot"},
        FaultCase{"EmptyFileName", {QString()}, "empty"},
        FaultCase{"UnknownOption", words("a.dot --frobnicate"), "--frobnicate"},
        FaultCase{"ScaleWithoutValue", words("a.dot --scale"), "--scale needs"},
        FaultCase{"ScaleZero", words("a.dot --scale 0"), "--scale needs"},
        FaultCase{"ScaleNegative", words("a.dot --scale -1"), "--scale needs"},
        FaultCase{"ScaleNan", words("a.dot --scale nan"), "--scale needs"},
        FaultCase{"ScaleInfinite", words("a.dot --scale inf"), "--scale needs"},
        FaultCase{"ScaleOverflows", words("a.dot --scale=1e999"), "--scale needs"},
        FaultCase{"ScaleWithRest", words("a.dot --scale 2x"), "--scale needs"},
        FaultCase{"SizeOneSide", words("a.dot --size 100"), "--size needs"},
        FaultCase{"SizeZero", words("a.dot --size 0x5"), "--size needs"},
        FaultCase{"SizeAboveLimit", words("a.dot --size 32768x5"), "--size needs"},
        FaultCase{"SizeBeyondInt", words("a.dot --size 5x99999999999"), "--size needs"},
        FaultCase{"ScaleAndSize", words("a.dot --scale 2 --size 9x9"), "exclude"},
        FaultCase{"ExportOfUnknownKind", words("a.dot --export a.bmp"), "--export needs"},
        FaultCase{"DumpOverTheDiagram", words("./a.dot --dump a.dot"), "replace the diagram"},
        FaultCase{"OneFileForBoth", words("a.dot --dump o.png --export ./o.png"), "the same file"},
        FaultCase{"DecoratorUnknown", words("a.dot --decorator pins"), "--decorator needs"},
        FaultCase{"DecoratorEmpty", words("a.dot --decorator="), "--decorator needs"},
        FaultCase{"DetailUnknown", words("a.dot --lod full"), "--lod needs"},
        FaultCase{"BackgroundUnknown", words("a.dot --background blurple"), "--background needs"},
        FaultCase{"BackgroundShortHex", words("a.dot --background #123"), "--background needs"},
        FaultCase{"DumpWithoutName", words("a.dot --dump="), "--dump needs"}),
    rowName);

TEST(CommandLineTest, TakesEveryOptionInEitherSpelling)
{
    const Options options =
        parseArguments(words("--stats a.dot --export OUT.PNG --size=32767x1 --dump d.json"
                             " --decorator=light_pin --lod massivemodel --background=#20406080"));
    EXPECT_TRUE(options.error.isEmpty());
    EXPECT_EQ(options.file, QStringLiteral("a.dot"));
    EXPECT_EQ(options.exportTo, QStringLiteral("OUT.PNG"));
    EXPECT_EQ(options.size, QSize(32767, 1));
    EXPECT_EQ(options.dumpTo, QStringLiteral("d.json"));
    EXPECT_EQ(options.decorator, QStringLiteral("light_pin"));
    EXPECT_EQ(options.detail, QStringLiteral("massivemodel"));
    EXPECT_EQ(options.background, Vetra::Color::fromPacked(0x80204060));
    EXPECT_TRUE(options.stats);
}

TEST(CommandLineTest, DashesAfterDoubleDashAreFiles)
{
    EXPECT_EQ(parseArguments(words("-- --x.dot")).file, QStringLiteral("--x.dot"));
}

} // namespace
} // namespace TovaView
