#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"
#include "tova/widget/dragpreview.h"
#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

namespace Tova2 {

namespace {

class CanvasDragTest : public testing::Test {
protected:
    CanvasDragTest()
    {
        canvas->setSize({400, 300});
        canvas->setScene(scene.get());
    }
    ~CanvasDragTest() override { canvas->destroy(); }
    RectNode addBlock(const Vetra::GLRect<double>& rect)
    {
        RectNode block(rect);
        block.setDrawStyle(DrawStyle(Stroke::NoStroke(), Fill(Vetra::Color(1, 0, 0))));
        scene->addNode(block);
        return block;
    }

    Vetra::Holder<Scene> scene = Scene::createScene();
    GLCanvas* const canvas = new GLCanvas(Vetra::StringID("canvas"));
};

TEST_F(CanvasDragTest, ShowsTheNodesAsLargeAsOnTheCanvasUnderThePointer)
{
    RectNode block = addBlock({0, 0, 40, 20});
    RectNode part = addBlock({10, 5, 10, 10});
    part.setParent(block); // drawn with the block, and not once more
    block.setPosition({100, 50});
    block.rotateDegrees(90);
    canvas->setScale(2);
    const auto preview = DragPreview::of(*canvas, {part, block, Node()}, {95, 60});
    const QImage image = Vetra::toQt(preview.pixmap).toImage();
    // 20 by 40 to the left of and below its place, and a pixel of antialiasing on each side.
    EXPECT_EQ(image.size(), QSize(42, 82));
    EXPECT_NEAR(preview.hotSpot.x, (95 - 80) * 2 + 1, 1e-6);
    EXPECT_NEAR(preview.hotSpot.y, (60 - 50) * 2 + 1, 1e-6);
    EXPECT_NEAR(qAlpha(image.pixel(21, 41)), 0.7 * 255, 1);
    EXPECT_NEAR(qAlpha(image.pixel(21, 24)), 0.7 * 255, 1);
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
}

TEST_F(CanvasDragTest, ShrinksAPreviewThatWouldCoverTheScreen)
{
    const auto preview = DragPreview::of(*canvas, {addBlock({0, 0, 1e6, 10})}, {5e5, 5});
    EXPECT_NEAR(preview.pixmap.width(), 400, 4);
    EXPECT_NEAR(preview.hotSpot.x, 200, 2);
    EXPECT_TRUE(DragPreview::of(*canvas, {}, {}).pixmap.isNull());
}

TEST_F(CanvasDragTest, ADragThatComesToNothingGivesItsDataUp)
{
    Vetra::GLMimeData data;
    data.setData("text/plain", "block");
    canvas->setMimeData(data);
    EXPECT_EQ(canvas->startDrag(Vetra::DropAction::Copy, {}), Vetra::DropAction::Ignore);
    EXPECT_TRUE(canvas->getMimeData().isEmpty());
}

} // namespace

} // namespace Tova2
