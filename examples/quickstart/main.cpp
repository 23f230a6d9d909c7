// The lines that the README quotes: two blocks and a line between them, in a window. Given the name
// of a file it writes what the window shows, and closes it by itself.
#include <tova/tova.h>

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);

    const auto scene = Tova2::Scene::createScene();
    Tova2::RectNode source({0, 0, 120, 60});
    source.setFill(Tova2::Fill(Vetra::Color(0.98, 0.85, 0.55)));
    scene->addNode(source);
    scene->addNode(Tova2::RoundedRectNode({200, 0, 120, 60}, 12));
    scene->addNode(Tova2::LineNode({120, 30}, {200, 30}));

    auto* const viewer = new Tova2::Viewer(scene.get()); // deletes itself when it is closed
    viewer->showAt({200, 200, 480, 200});                // in pixels of the screen
    viewer->getCanvas()->setMargins({20, 20, 20, 20});
    viewer->getCanvas()->zoomToSceneRect();

    if (argc < 2)
        return QApplication::exec(); // until the window is closed
    QApplication::processEvents();
    viewer->getCanvas()->getCanvasSnapshotWithWebBlock().toImage()->savePng(argv[1]);
    viewer->close();
    return 0;
}
