// What a host needs from the installed libraries: headers that stand alone, pictures and canvases
// with the right pixels, and errors that can be caught on this side of a shared library.
#include <host/featureregistry.h>
#include <tova/tova.h>
#include <vetra/error.h>
#include <widgets/qt.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <cstdio>

namespace {

Vetra::Holder<Tova2::Scene> blueBlock()
{
    auto scene = Tova2::Scene::createScene();
    Tova2::RectNode block(Vetra::GLRect<double>{0, 0, 40, 40});
    block.setFill(Tova2::Fill(Vetra::Color(0, 0, 1, 1)));
    scene->addNode(block);
    return scene;
}

bool paintsItsFill()
{
    const auto scene = blueBlock();
    QImage picture(60, 60, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    scene->render(picture, {0, 0, 60, 60}, {-10, -10, 60, 60});
    return picture.pixelColor(30, 30) == Qt::blue && picture.pixelColor(5, 5) == Qt::white;
}

bool canvasShowsIt()
{
    const auto scene = blueBlock();
    auto* const canvas = new Tova2::GLCanvas(Vetra::StringID("canvas"));
    canvas->setSize({200, 200});
    canvas->setScene(scene.get());
    canvas->zoomToSceneRect();
    const QImage picture = toQt(*canvas)->grab().toImage();
    canvas->destroy();
    return picture.size() == QSize(200, 200) && picture.pixelColor(100, 100) == Qt::blue;
}

bool errorsCrossTheLibrary()
{
    try {
        Tova2::Node().setPosition({1, 1});
    } catch (const Vetra::Error& error) {
        return error.key() == "InvalidNode";
    }
    return false;
}

/// Made when the library was loaded; nothing here asks for them.
bool listsItsSwitches()
{
    return Host::readSwitch("SegvLogging") == 1 &&
           Host::readSwitch("UseZeroOffsetForNewEditors") == 0;
}

bool check(const char* what, bool passed)
{
    std::printf("consumer: %s: %s\n", what, passed ? "yes" : "NO");
    return passed;
}

} // namespace

int main(int argc, char** argv)
{
    const bool listed = check("the library lists its switches", listsItsSwitches());
    const QApplication application(argc, argv);
    const bool painted = check("a block is painted in its colour", paintsItsFill());
    const bool shown = check("a canvas shows it", canvasShowsIt());
    const bool caught = check("an error can be caught by its type", errorsCrossTheLibrary());
    return listed && painted && shown && caught ? 0 : 1;
}
