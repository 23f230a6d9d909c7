#include "looks/sheet.h"

#include "support/goldenpicture.h"

#include <gmock/gmock.h>

namespace Tova2::Looks {
namespace {

struct SheetCase {
    const char* name;
    Cells (*cells)();
    double ratio;
};
void PrintTo(const SheetCase& c, std::ostream* out)
{
    *out << c.name << " at " << c.ratio;
}
class LooksTest : public testing::TestWithParam<SheetCase> {};

QString fileOf(const SheetCase& sheet)
{
    return QStringLiteral(TOVA_GOLDEN_FOLDER "/%1_%2.png")
        .arg(QLatin1String(sheet.name))
        .arg(static_cast<int>(sheet.ratio * 100));
}

TEST_P(LooksTest, AreAsTheyWereWhenTheyWereLookedAt)
{
    TestSupport::expectGolden(drawSheet(GetParam().cells(), 6, GetParam().ratio),
                              fileOf(GetParam()));
}

// Composing translucent pixels a second time rounds once more, which nobody sees.
TEST_P(LooksTest, AreTheSameFromCaches)
{
    const Cells cells = GetParam().cells();
    for (const Cell& cell : cells) {
        for (Node node : cell.scene->getAllNodes())
            node.setCacheType(CacheType::ItemCoordinateCache);
    }
    drawSheet(cells, 6, GetParam().ratio);
    const QImage again = drawSheet(cells, 6, GetParam().ratio);
    EXPECT_EQ(TestSupport::differencesOf(QImage(fileOf(GetParam())), again).plain, 0);
}

// The comparison must not be so lenient that it misses a cell drawn a pixel off.
TEST_P(LooksTest, WouldNotBeTheSameAPixelOff)
{
    const QImage golden(fileOf(GetParam()));
    const int half = golden.width() / 2;
    for (const QRect part : {QRect(0, 0, half, golden.height()), golden.rect()}) {
        QImage moved = golden;
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 1; x < part.width(); ++x)
                moved.setPixel(x, y, golden.pixel(x - 1, y));
        }
        EXPECT_FALSE(TestSupport::differencesOf(golden, moved).isNothing(golden));
    }
}

std::vector<SheetCase> allSheets()
{
    std::vector<SheetCase> sheets;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        sheets.push_back({"fills", fillCells, ratio});
        sheets.push_back({"strokes", strokeCells, ratio});
        sheets.push_back({"backgrounds", backgroundCells, ratio});
        sheets.push_back({"effects", effectCells, ratio});
        sheets.push_back({"panels", panelCells, ratio});
    }
    return sheets;
}

INSTANTIATE_TEST_SUITE_P(Tova, LooksTest, testing::ValuesIn(allSheets()));

} // namespace
} // namespace Tova2::Looks
