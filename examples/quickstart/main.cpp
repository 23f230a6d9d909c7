// The lines that the README quotes: two blocks and a line between them, written as a picture.
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
    Tova2::RoundedRectNode sink({200, 0, 120, 60}, 12);
    scene->addNode(sink);
    scene->addNode(Tova2::LineNode({120, 30}, {200, 30}));

    QImage picture(360, 100, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    scene->render(picture, {}, {-20, -20, 360, 100}); // the part of the scene to show, in points
    return picture.save(application.arguments().value(1, QStringLiteral("quickstart.png"))) ? 0 : 1;
}
