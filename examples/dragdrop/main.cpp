// Blocks are dragged from a palette into a diagram: two canvases in a window of the host's. Given
// the name of a file, a made-up user drops one block and holds another, and the window is pictured.
#include "blocks.h"
#include "dragouttool.h"
#include "droptool.h"

#include <vetra/qt.h>
#include <widgets/qt.h>

#include <QApplication>
#include <QPainter>
#include <QSplitter>

using namespace Tova2;

namespace {

/// Every format that blocks travel in has to be named, or it is not read.
GLCanvas* addCanvas(QSplitter& window, Scene& scene, const char* name)
{
    auto* const canvas = new GLCanvas(Vetra::StringID(name));
    canvas->setScene(&scene);
    canvas->setDropFormats({kBlockFormat});
    canvas->showScenePointAtViewPointAtScale({0, 0}, {0, 0}, 1);
    window.addWidget(Widgets::toQt(*canvas));
    return canvas;
}

bool play(Scene& palette, GLCanvas& from, Scene& diagram, GLCanvas& into, QImage& picture)
{
    EventTestDriver user(diagram, &into);
    Vetra::GLMimeData data;
    data.setData(kBlockFormat, "Gain");
    const auto action =
        user.dropFromOutside(Vetra::GLPoint<double>{128, 93}, data, Vetra::DropAction::Copy);
    const auto blocks = palette.getNodesWithTag(blockTag());
    user.beginDrag(Vetra::GLPoint<double>{}, &from, data, Vetra::DropAction::Copy);
    user.dragTo(Vetra::GLPoint<double>{262, 171});
    const auto preview = DragPreview::of(from, {blocks.front()}, {75, 190});
    const QPixmap window = Widgets::toQt(into)->window()->grab();
    picture = window.toImage();
    QPainter painter(&picture);
    const QPointF pointer = Widgets::toQt(into)->geometry().topLeft() + QPointF(262, 171);
    painter.drawPixmap(pointer - Vetra::toQt(preview.hotSpot), Vetra::toQt(preview.pixmap));
    user.endDrag();
    return action == Vetra::DropAction::Copy && diagram.getNodesWithTag(blockTag()).size() == 1;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto palette = Scene::createScene();
    const auto diagram = Scene::createScene();
    double y = 50;
    for (const char* const name : {"Source", "Gain", "Sink"}) {
        palette->addNode(makeBlock(name, {75, y}));
        y += 70;
    }
    palette->addTool(new DragOutTool);
    diagram->addTool(new DropTool);

    QSplitter window;
    GLCanvas* const from = addCanvas(window, *palette, "palette");
    GLCanvas* const into = addCanvas(window, *diagram, "diagram");
    window.setSizes({150, 450});
    window.setWindowTitle(QStringLiteral("Drag and drop"));
    window.resize(600, 260);
    window.show();
    if (argc < 2)
        return QApplication::exec();

    QApplication::processEvents();
    QImage picture;
    const bool isDropped = play(*palette, *from, *diagram, *into, picture);
    return isDropped && picture.save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
