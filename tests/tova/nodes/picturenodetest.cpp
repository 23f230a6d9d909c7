#include "tova/nodes/picturenode.h"

#include "contentsamples.h"

namespace Tova2 {
namespace {

void drawSample(QPainter& painter)
{
    painter.translate(5, 5);
    painter.fillRect(0, 0, 20, 10, Qt::red);
    painter.save();
    painter.scale(2, 1);
    painter.setPen(QPen(Qt::blue, 2));
    painter.setBrush(Qt::green);
    painter.drawEllipse(4, 4, 10, 20);
    painter.restore();
    painter.drawLine(0, 0, 3, 25);
}

TEST(PictureNodeTest, ReplaysAtAnyZoomAsDrawnDirectly)
{
    const PictureNode node(Vetra::recordPicture(drawSample));
    for (const QTransform& view :
         {QTransform(), QTransform::fromScale(2.5, 2.5), QTransform(0.6, 0.3, -0.3, 0.6, 30, 4)}) {
        QImage direct(140, 120, QImage::Format_RGB32);
        direct.fill(Qt::white);
        QPainter painter(&direct);
        painter.setTransform(view);
        drawSample(painter);
        painter.end();
        EXPECT_EQ(shown(node, direct.size(), view), direct);
        EXPECT_TRUE(boundsCoverInk(node, view * QTransform::fromTranslate(100, 100)));
    }
}

TEST(PictureNodeTest, StrokeOfTheStyleNeitherShowsNorCounts)
{
    PictureNode node(Vetra::recordPicture(drawSample));
    const auto before = node.getBoundingRect();
    const QImage picture = shown(node, {60, 60}, {});
    node.setStroke(Stroke(Vetra::Color::fromPacked(0xffff0000), 9, StrokeStyle::SolidLine,
                          StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr));
    node.setFillColor(Vetra::Color::fromPacked(0xff00ff00));
    EXPECT_EQ(node.getBoundingRect(), before);
    EXPECT_EQ(shown(node, {60, 60}, {}), picture);
}

TEST(PictureNodeTest, OpacityOfTheNodeHoldsForAllOfIt)
{
    PictureNode node(Vetra::recordPicture([](QPainter& painter) {
        painter.setOpacity(0.5);
        painter.fillRect(0, 0, 10, 10, Qt::black);
    }));
    node.setOpacity(0.5);
    Vetra::GLPoint<double> offset;
    const QImage image = Vetra::toQt(node.renderToPixmap(CacheType::NoCache, 1, offset)).toImage();
    EXPECT_NEAR(qAlpha(image.pixel(QPoint(5 - int(offset.x), 5 - int(offset.y)))), 64, 1);
}

TEST(PictureNodeTest, WithoutAPictureItIsNothing)
{
    PictureNode node;
    EXPECT_EQ(node.getPicture(), nullptr);
    node.setPicture(Vetra::recordPicture(drawSample));
    EXPECT_EQ(*node.getPicture(), Vetra::recordPicture(drawSample));
    node.setPicture({});
    EXPECT_EQ(node.getPicture(), nullptr);
    EXPECT_EQ(node.getBoundingRect(), Vetra::GLRect<double>());
    EXPECT_TRUE(inkOf(shown(node, {20, 20}, {})).isNull());
}

} // namespace
} // namespace Tova2
