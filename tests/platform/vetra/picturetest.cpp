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

} // namespace
} // namespace Vetra
