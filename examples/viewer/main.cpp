// A control loop to look at in a window: pan and zoom it, close it. Given the name of a file it
// writes what the window shows, and closes it by itself.
#include <tova/tova.h>

#include <QApplication>

#include <string>
#include <vector>

using namespace Tova2;
using Vetra::Color;
using Point = Vetra::GLPoint<double>;

namespace {

const Color kInk(0.16, 0.2, 0.3), kCard(0.89, 0.94, 0.99), kPlant(0.99, 0.93, 0.81);

const Stroke kLine(kInk, 1.5, StrokeStyle::SolidLine, StrokeCapStyle::RoundCap,
                   StrokeJoinStyle::RoundJoin, nullptr);

DrawStyle smooth(const Fill& fill)
{
    DrawStyle style(kLine, fill);
    style.setIsAntiAliased(true);
    return style;
}

TextNode label(const std::string& words, const Vetra::GLRect<double>& box)
{
    TextNode text(words);
    text.setFont(Vetra::Font("DejaVu Sans", 11));
    text.setRect(box);
    text.setHorizontalAlignment(HorizontalAlignment::Middle);
    text.setVerticalAlignment(VerticalAlignment::Middle);
    text.setColor(kInk);
    return text;
}

void addBlock(Scene& scene, const std::string& words, Point place, const Color& color)
{
    const Vetra::GLRect<double> box{0, 0, 90, 50};
    RoundedRectNode block(box, 6);
    block.setDrawStyle(smooth(Fill(color)));
    block.setPosition(place);
    label(words, box).setParent(block);
    scene.addNode(block);
}

void addSum(Scene& scene, Point middle)
{
    EllipseNode sum(Ellipse({-17, -17, 34, 34}));
    sum.setDrawStyle(smooth(Fill(kCard)));
    sum.setPosition(middle);
    label("+", {-17, -17, 16, 34}).setParent(sum);
    label("\xe2\x88\x92", {-17, 2, 34, 14}).setParent(sum);
    scene.addNode(sum);
}

void addLine(Scene& scene, const std::vector<Point>& corners)
{
    OpenLinearPathNode line(corners);
    line.setDrawStyle(smooth(Fill::NoFill()));
    line.setCornerStyle(CornerStyle::Rounded);
    line.setRoundedCornerRadius(6);
    line.setEndDecoration(LineEndings::createFilledArrow(kLine));
    scene.addNode(line);
}

Vetra::Holder<Scene> makeLoop()
{
    const auto scene = Scene::createScene();
    addBlock(*scene, "set point", {0, 0}, kCard);
    addSum(*scene, {140, 25});
    addBlock(*scene, "controller", {200, 0}, kCard);
    addBlock(*scene, "plant", {340, 0}, kPlant);
    addBlock(*scene, "sensor", {270, 90}, kCard);
    addLine(*scene, {{90, 25}, {123, 25}});
    addLine(*scene, {{157, 25}, {200, 25}});
    addLine(*scene, {{290, 25}, {340, 25}});
    addLine(*scene, {{430, 25}, {500, 25}});
    addLine(*scene, {{465, 25}, {465, 115}, {360, 115}});
    addLine(*scene, {{270, 115}, {140, 115}, {140, 42}});
    return scene;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto scene = makeLoop();

    auto* const viewer = new Viewer(scene.get());
    viewer->showAt({200, 200, 640, 300});
    viewer->getCanvas()->setMargins({24, 24, 24, 24});
    viewer->getCanvas()->zoomToSceneRect();
    if (argc < 2)
        return QApplication::exec(); // until the user closes the window, and with it the viewer

    QApplication::processEvents();
    viewer->getCanvas()->getCanvasSnapshotWithWebBlock().toImage()->savePng(argv[1]);
    viewer->close();
    return 0;
}
