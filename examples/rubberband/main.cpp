// A tool of one's own: a rubber band over blocks, which are then moved. The driver plays the user
// here; in a program the canvas does.
#include "selecttool.h"

#include <QApplication>
#include <QImage>

#include <cstdio>
#include <string>

using namespace Tova2;
using Vetra::Color;

namespace {

DrawStyle smooth(const Stroke& stroke, const Fill& fill = Fill::NoFill())
{
    DrawStyle style(stroke, fill);
    style.setIsAntiAliased(true);
    return style;
}

Stroke ink(double width)
{
    return Stroke(Color(0.13, 0.22, 0.36), width, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                  StrokeJoinStyle::MiterJoin, nullptr);
}

RoundedRectNode addBlock(Scene& scene, const std::string& name, double x, double y)
{
    RoundedRectNode block({0, 0, 90, 44}, 7);
    block.setDrawStyle(smooth(ink(1.2), Fill(Color(0.90, 0.94, 0.98))));
    block.setPosition({x, y});
    block.addTag(SelectTool::blockTag());
    TextNode label(name);
    label.setRect({0, 0, 90, 44});
    label.setHorizontalAlignment(HorizontalAlignment::Middle);
    label.setVerticalAlignment(VerticalAlignment::Middle);
    label.setParent(block);
    scene.addNode(block);
    return block;
}

QImage picture(Scene& scene)
{
    QImage image(760, 420, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    scene.render(image, {}, {0, 0, 380, 210});
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const auto scene = Scene::createScene();
    auto source = addBlock(*scene, "Source", 30, 30);
    auto filter = addBlock(*scene, "Filter", 150, 30);
    addBlock(*scene, "Sink", 270, 30);
    addBlock(*scene, "Gain", 90, 130);
    addBlock(*scene, "Log", 220, 130);

    const Vetra::Holder<SelectTool> tool(new SelectTool);
    scene->addTool(tool.get());

    EventTestDriver user(*scene);
    user.moveTo(Vetra::GLPoint<double>{12, 14});
    user.press();
    user.moveTo(Vetra::GLPoint<double>{150, 60});
    user.moveTo(Vetra::GLPoint<double>{252, 92}); // around Source and Filter
    const QImage banding = picture(*scene);
    user.release();
    user.drag(source, Vetra::GLPoint<double>{source.getScenePosition().x + 45, 112});

    std::printf("%zu blocks selected, Filter now at y = %g\n", tool->selection().size(),
                filter.getScenePosition().y);
    const bool moved = tool->selection().size() == 2 && filter.getScenePosition().y == 90;
    const QString file = application.arguments().value(1, QStringLiteral("rubberband.png"));
    return moved && banding.save(file) ? 0 : 1;
}
