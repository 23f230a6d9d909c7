#include "tova/widget/webblock.h"
#include "tova/nodes/geometry/limits.h"
#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"
#include "widgets/qt.h"

#include <QPalette>
#include <QPointer>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Tova2 {
namespace {

using Rect = Vetra::GLRect<double>;

/// A red page that writes down its scale.
class RedBlock : public WebBlock {
public:
    RedBlock(QWidget& parent, double& scale) : m_widget(new QWidget(&parent)), m_scale(scale)
    {
        m_widget->setAutoFillBackground(true);
        m_widget->setPalette(QPalette(Qt::red));
    }
    ~RedBlock() override { delete m_widget; }
    QWidget* widget() const override { return m_widget; }
    void setHtml(const std::string&) override {}
    void setScale(double scale) override { m_scale = scale; }

private:
    QPointer<QWidget> m_widget;
    double& m_scale;
};

class WebBlockTest : public testing::Test {
protected:
    WebBlockTest()
    {
        setWebBlockFactory([this](QWidget& parent) {
            auto block = std::make_unique<RedBlock>(parent, m_scale);
            m_page = block->widget();
            return block;
        });
        m_canvas->setSize({200, 100});
    }
    ~WebBlockTest() override
    {
        setWebBlockFactory({});
        m_canvas->destroy();
    }

    double m_scale = 0;
    QPointer<QWidget> m_page;
    GLCanvas* const m_canvas = new GLCanvas("canvas");
};

TEST_F(WebBlockTest, GoesWithTheScene)
{
    ASSERT_TRUE(m_canvas->setWebBlock({10, 20, 30, 40}, "page"));
    m_canvas->showScenePointAtViewPointAtScale({10, 20}, {50, 10}, 2);
    EXPECT_EQ(m_page->geometry(), QRect(50, 10, 60, 80));
    EXPECT_EQ(m_scale, 2);
    m_canvas->translate(-500, 0);
    EXPECT_TRUE(m_page->isHidden()) << "out of the view";
    EXPECT_TRUE(m_canvas->getPixmapOfBrowserInView().isNull());
    m_canvas->showScenePointAtViewPointAtScale({10, 20}, {0, 0}, 1000);
    EXPECT_TRUE(m_page->isHidden()) << "too large";
}

TEST_F(WebBlockTest, IsInThePictures)
{
    m_canvas->setWebBlock({150, 50, 100, 20}, "page");
    const QImage all = toQt(m_canvas->getCanvasSnapshotWithWebBlock()).toImage();
    const QRgb red = QColor(Qt::red).rgb(), ground = all.pixel(5, 5);
    ASSERT_NE(red, ground);
    EXPECT_EQ(all.pixel(160, 60), red);
    EXPECT_EQ(all.pixel(140, 60), ground);
    EXPECT_EQ(m_canvas->getPixmapOfBrowserInView().size(), (Vetra::Size<int>{50, 20}));

    constexpr int huge = std::numeric_limits<int>::max();
    const auto part = m_canvas->getSceneImageWithWebblocksForTesting({140, 60, huge, huge});
    EXPECT_EQ(part->size(), (Vetra::Size<int>{60, 40}));
    EXPECT_EQ(toQt(*part).pixel(15, 5), red);
    EXPECT_TRUE(m_canvas->getSceneImageWithWebblocksForTesting({-9, -9, 5, 5})->isNull());
    m_canvas->removeWebBlock();
    EXPECT_EQ(toQt(m_canvas->getCanvasSnapshotWithWebBlock()).toImage().pixel(160, 60), ground);
}

TEST_F(WebBlockTest, RefusesWhatItCannotShow)
{
    const std::string page(Limits::textBytes, ' ');
    EXPECT_FALSE(m_canvas->setWebBlock({0, 0, 9, 9}, page + ' '));
    EXPECT_FALSE(m_canvas->setWebBlock({0, 0, 0, 9}, page));
    EXPECT_FALSE(m_canvas->setWebBlock({std::nan(""), 0, 9, 9}, page));
    EXPECT_FALSE(m_canvas->setWebBlock({0, 0, HUGE_VAL, 9}, page));
    EXPECT_TRUE(m_canvas->setWebBlock({0, 0, 9, 9}, page));
    setWebBlockFactory({});
    EXPECT_FALSE(m_canvas->setWebBlock({0, 0, 9, 9}, page)) << "without an engine";
}

TEST_F(WebBlockTest, IsAssociatedByItsName)
{
    m_canvas->associateBrowserForTesting(7);
    ASSERT_TRUE(m_canvas->hasBrowser());
    EXPECT_EQ(m_page->objectName(), QStringLiteral("webblock7"));
    EXPECT_EQ(m_page->size(), QSize(200, 100));
    m_canvas->associateBrowserForTesting(0);
    EXPECT_FALSE(m_canvas->hasBrowser() || m_page);
}

TEST_F(WebBlockTest, MayBeDeletedWithTheToolkitsCanvas)
{
    m_canvas->setWebBlock({0, 0, 9, 9}, "page");
    delete toQt(*m_canvas);
    EXPECT_FALSE(m_canvas->hasBrowser());
    m_canvas->setScale(2);
    EXPECT_TRUE(m_canvas->getSceneImageWithWebblocksForTesting({0, 0, 9, 9})->isNull());
}

} // namespace
} // namespace Tova2
