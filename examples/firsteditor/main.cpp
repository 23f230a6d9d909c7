// The editor that docs/guide/first-editor.md builds: two blocks that can be dragged. Given the name
// of a file it plays a user, writes what the window shows in the middle of a drag, and ends.
#include "dragtool.h"
#include "stamptool.h"

#include <QApplication>

#include <cstdio>

namespace {

/// Whether all that the page promises is so.
bool play(Tova2::Scene& scene, Tova2::GLCanvas& canvas, const Tova2::Node& block,
          const char* picture)
{
    Tova2::EventTestDriver user(scene, &canvas);
    user.click(Vetra::GLPoint<double>{180, 130});
    const bool isStamped = scene.getNodesWithTag(DragTool::blockTag()).size() == 3;

    user.moveTo(block);
    user.press();
    user.moveTo(Vetra::GLPoint<double>{150, 75});
    user.moveTo(Vetra::GLPoint<double>{175, 90});
    QApplication::processEvents();
    canvas.getCanvasSnapshotWithWebBlock().toImage()->savePng(picture);
    const bool isDragged = block.getScenePosition() == Vetra::GLPoint<double>{120, 65};
    user.typeKey(Vetra::Key::Escape);
    const bool isBack = block.getScenePosition() == Vetra::GLPoint<double>{40, 40};
    user.release();
    user.typeKey(Vetra::Key::Right);
    const bool isNudged = block.getScenePosition() == Vetra::GLPoint<double>{45, 40};
    if (!isStamped || !isDragged || !isBack || !isNudged)
        std::printf("stamped %d, dragged %d, back %d, nudged %d\n", isStamped, isDragged, isBack,
                    isNudged);
    return isStamped && isDragged && isBack && isNudged;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Vetra::ErrorHolder errors;
    Tova2::initialize_tova(errors);

    const auto scene = Tova2::Scene::createScene();
    const auto source = makeBlock("Source", {40, 40});
    scene->addNode(source);
    scene->addNode(makeBlock("Sink", {260, 40}));

    auto* const viewer = new Tova2::Viewer(scene.get()); // deletes itself when it is closed
    viewer->showAt({200, 200, 480, 280});
    auto& canvas = *viewer->getCanvas();
    canvas.showSceneRect({0, 0, 410, 230});

    scene->addTool(new DragTool(canvas)); // on top of the tools that are there
    scene->addTool(new StampTool);

    if (argc < 2)
        return QApplication::exec();
    const bool isFine = play(*scene, canvas, source, argv[1]);
    viewer->close();
    return isFine ? 0 : 1;
}
