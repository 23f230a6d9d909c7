// The ten lines of the README: a diagram of two blocks, written as a picture.
#include <tova/tova.h>

#include <QApplication>
#include <QImage>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);

    const auto scene = Tova2::Scene::createScene();
    Tova2::RectNode source({0, 0, 120, 60});
    source.setFill(Tova2::Fill(Vetra::Color(0.98, 0.85, 0.55, 1)));
    scene->addNode(source);
    Tova2::EllipseNode sink({180, 0, 60, 60});
    scene->addNode(sink);
    scene->addNode(Tova2::LineNode({120, 30}, {180, 30}));

    QImage picture(280, 100, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    scene->render(picture, {0, 0, 280, 100}, {-20, -20, 280, 100});
    return picture.save(argc > 1 ? argv[1] : "quickstart.png") ? 0 : 1;
}
