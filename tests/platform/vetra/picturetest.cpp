#include "vetra/picture.h"

#include "support.h"

namespace Vetra {
namespace {

void drawBar(QPainter& painter)
{
    painter.fillRect(2, 3, 4, 1, Qt::red);
}

TEST(PictureTest, ReplaysWhatWasRecordedAndLeavesThePainterAlone)
{
    const auto picture = recordPicture([](QPainter& painter) {
        painter.translate(2, 3);
        painter.fillRect(0, 0, 4, 1, Qt::red);
    });
    QImage replayed = plainImage(10, 10, Qt::white), direct = replayed;
    {
        QPainter painter(&replayed);
        play(painter, picture);
        EXPECT_TRUE(painter.transform().isIdentity());
        QPainter straight(&direct);
        drawBar(straight);
    }
    EXPECT_EQ(replayed, direct);
}

TEST(PictureTest, ComparesCommands)
{
    EXPECT_EQ(recordPicture(drawBar), recordPicture(drawBar));
    EXPECT_NE(recordPicture(drawBar),
              recordPicture([](QPainter& p) { p.fillRect(2, 3, 4, 1, Qt::blue); }));
    EXPECT_NE(recordPicture(drawBar), Picture());
}

TEST(PictureTest, EmptyOnesAndIdlePaintersAreHarmless)
{
    EXPECT_TRUE(recordPicture({}).isEmpty());
    EXPECT_EQ(Picture().boundingRect(), GLRect<double>());
    QPainter idle;
    play(idle, recordPicture(drawBar));
    EXPECT_FALSE(idle.isActive());
}

struct ReplayCase : NamedRow {
    void (*draw)(QPainter&);
    QPoint place; ///< in the picture
    int gray;     ///< there, on white
};
class PictureReplayTest : public testing::TestWithParam<ReplayCase> {};

// Onto a device three times as fine as the recording, half transparent, clipped to 20 by 20.
TEST_P(PictureReplayTest, KeepsToThePaintersClipOpacityAndCoordinates)
{
    const auto picture = recordPicture(GetParam().draw);
    QImage image = plainImage(60, 60, Qt::white);
    image.setDotsPerMeterX(11811);
    image.setDotsPerMeterY(11811);
    QPainter painter(&image);
    painter.setBrush(Qt::yellow);
    painter.setPen(QPen(Qt::green, 9));
    painter.translate(10, 10);
    painter.setClipRect(0, 0, 20, 20);
    painter.setOpacity(0.5);
    play(painter, picture);
    EXPECT_EQ(painter.opacity(), 0.5);
    EXPECT_EQ(painter.brush(), QBrush(Qt::yellow));
    painter.end();
    const QRgb pixel = image.pixel(GetParam().place + QPoint(10, 10));
    EXPECT_NEAR(qRed(pixel), GetParam().gray, 1);
    EXPECT_NEAR(qBlue(pixel), GetParam().gray, 1);
}

void fillMuch(QPainter& painter)
{
    painter.fillRect(-5, -5, 40, 40, Qt::black);
}

void useOwnOpacity(QPainter& painter)
{
    painter.setOpacity(0.5);
    fillMuch(painter);
}

void useLargerClip(QPainter& painter)
{
    painter.setClipRect(-5, -5, 40, 40);
    fillMuch(painter);
}

void switchClipOff(QPainter& painter)
{
    painter.setClipRect(0, 0, 5, 5);
    painter.setClipping(false);
    fillMuch(painter);
}

void useSmallerClip(QPainter& painter)
{
    painter.scale(2, 2);
    painter.setClipRect(0, 0, 3, 3);
    fillMuch(painter);
}

void leaveSmallerClip(QPainter& painter)
{
    painter.save();
    useSmallerClip(painter);
    painter.restore();
    painter.fillRect(10, 10, 5, 5, Qt::black);
}

void outline(QPainter& painter)
{
    painter.drawRect(2, 2, 10, 10);
}

INSTANTIATE_TEST_SUITE_P(
    Picture, PictureReplayTest,
    testing::Values(ReplayCase{"SizeIsTheRecorded", outline, {12, 6}, 127},
                    ReplayCase{"BrushIsTheRecorded", outline, {6, 6}, 255},
                    ReplayCase{"OpacityMultiplies", useOwnOpacity, {6, 6}, 191},
                    ReplayCase{"LargerClipStaysInside", useLargerClip, {-2, 6}, 255},
                    ReplayCase{"ClipSwitchedOffStaysInside", switchClipOff, {22, 6}, 255},
                    ReplayCase{"ClipSwitchedOffIsOff", switchClipOff, {15, 6}, 127},
                    ReplayCase{"SmallerClipHoldsInside", useSmallerClip, {4, 4}, 127},
                    ReplayCase{"SmallerClipHoldsOutside", useSmallerClip, {8, 4}, 255},
                    ReplayCase{"SmallerClipEnds", leaveSmallerClip, {12, 12}, 127}),
    rowName);

TEST(PictureTest, BoundsHoldText)
{
    const auto picture = recordPicture([](QPainter& painter) {
        QFont font;
        font.setPixelSize(20);
        font.setItalic(true);
        painter.setFont(font);
        painter.translate(-30, 50);
        painter.drawText(0, 0, QStringLiteral("fjord"));
    });
    const auto bounds = picture.boundingRect();
    QImage image = plainImage(120, 80, Qt::white);
    QPainter painter(&image);
    painter.translate(40, 0);
    play(painter, picture);
    painter.fillRect(toQt(bounds), Qt::white);
    painter.end();
    EXPECT_EQ(image, plainImage(120, 80, Qt::white));
    EXPECT_LT(bounds.width, 80);
}

} // namespace
} // namespace Vetra
