#include "tova/nodes/style/background.h"
#include "tova/style/lowcolor.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace Tova2 {
namespace {

class BackgroundTest : public testing::Test {
protected:
    std::string fileOf(const char* name, bool isImage) const
    {
        const QString path = m_directory.filePath(QString::fromLatin1(name));
        QImage image(2, 3, QImage::Format_ARGB32);
        image.fill(Qt::red);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(isImage ? image.save(&file, "PNG") : file.write("no image") == 8);
        return path.toStdString();
    }

    QTemporaryDir m_directory;
    Background m_background;
};

TEST_F(BackgroundTest, HasNothingAtFirstAndNothingAfterClearing)
{
    m_background.setColor(red);
    m_background.setGradient(gradientOf(red, blue));
    m_background.setImage("somewhere");
    EXPECT_TRUE(m_background.hasColor() && m_background.hasGradient());
    EXPECT_NE(m_background, Background());
    m_background.clearColor();
    m_background.clearGradient();
    m_background.clearImage();
    EXPECT_EQ(m_background, Background());
    EXPECT_FALSE(m_background.hasColor() || m_background.hasGradient() || m_background.hasImage());
    EXPECT_EQ(m_background.getColor().alpha(), 0);
}

TEST_F(BackgroundTest, ImageIsThereOnlyWhenItLoads)
{
    EXPECT_FALSE(m_background.hasImage());
    m_background.setImage(fileOf("good.png", true));
    EXPECT_TRUE(m_background.hasImage());
    EXPECT_EQ(m_background.loadedImage()->height(), 3);
    for (const auto& bad :
         {fileOf("bad.png", false), m_directory.path().toStdString(), std::string("/nowhere")}) {
        m_background.setImage(bad);
        EXPECT_FALSE(m_background.hasImage()) << bad;
        EXPECT_EQ(m_background.loadedImage(), nullptr);
    }
}

TEST_F(BackgroundTest, AnswerStandsUntilThePathChanges)
{
    const auto path = fileOf("good.png", true);
    m_background.setImage(path);
    EXPECT_TRUE(m_background.hasImage());
    QFile::remove(QString::fromStdString(path));
    m_background.setImage(path);
    EXPECT_TRUE(m_background.hasImage());
    const Background copy = m_background;
    EXPECT_TRUE(copy.hasImage());
    m_background.clearImage();
    m_background.setImage(path);
    EXPECT_FALSE(m_background.hasImage());
    EXPECT_EQ(m_background, copy);
}

TEST_F(BackgroundTest, FewColoursTurnTheGradientIntoAColour)
{
    m_background.setGradient(gradientOf(blue, red));
    const auto before = m_background;
    m_background.overrideGradientIfLowColorMode();
    EXPECT_EQ(m_background, before);
    const LowColor screen;
    m_background.overrideGradientIfLowColorMode();
    EXPECT_EQ(m_background.getColor(), blue);
    EXPECT_FALSE(m_background.hasGradient());
    Background plain;
    plain.overrideGradientIfLowColorMode();
    EXPECT_FALSE(plain.hasColor());
}

} // namespace
} // namespace Tova2
