// How crossings of connectors are marked.
#include "pages.h"
#include "sketch.h"

using namespace Tova2;

namespace {

OpenLinearPathNode connector(const std::vector<Vetra::GLPoint<double>>& points)
{
    OpenLinearPathNode path(points);
    path.setDrawStyle(Sketch::smooth(Sketch::line(1.2)));
    return path;
}

void addConnectors(Scene& scene)
{
    scene.addNode(connector({{10, 25}, {85, 25}}));
    scene.addNode(connector({{10, 50}, {60, 50}, {60, 80}}));
    scene.addNode(connector({{28, 10}, {28, 80}}));
    scene.addNode(connector({{72, 10}, {72, 65}, {10, 65}}));
    auto guide = connector({{45, 5}, {45, 85}}); // a construction line, not a connector
    guide.setStrokeColor(Vetra::Color(0.9, 0.5, 0.2));
    guide.addTag(pathIntersectionsEnabledTag(), false);
    scene.addNode(guide);
}

} // namespace

QImage crossingsPage()
{
    QImage picture(760, 220, QImage::Format_RGB32);
    picture.fill(Qt::white);
    double x = 0;
    bool isRight = true;
    for (const char* const name : {"pin", "grad_pin", "light_pin", "hop"}) {
        Sketch sketch(95, 110);
        addConnectors(sketch.scene());
        sketch.words(name, {47, 98}, 8);
        sketch.scene().usePathIntersectionsDecorator(name);
        sketch.scene().findPathIntersections(); // a canvas need not: it is done between events
        isRight = isRight && sketch.scene().pathIntersectionsCount() == 5;
        sketch.scene().render(picture, {x, 0, 190, 220}, {0, 0, 95, 110});
        x += 190;
    }
    return isRight ? picture : QImage();
}
