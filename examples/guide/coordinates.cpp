// Local, parent and scene coordinates of one point.
#include "pages.h"
#include "sketch.h"

#include <cmath>

using namespace Tova2;

namespace {

using Point = Vetra::GLPoint<double>;

void addAxes(const Node& parent, double length)
{
    const Stroke stroke = Sketch::line(0.8, Vetra::Color(0.8, 0.3, 0.2));
    for (const Point& end : {Point{length, 0}, Point{0, length}}) {
        LineNode axis({0, 0}, end);
        axis.setDrawStyle(Sketch::smooth(stroke));
        axis.setEndDecoration(LineEndings::createOpenArrow(stroke, 5));
        axis.setParent(parent);
    }
}

std::string written(const char* whose, const Point& point)
{
    return std::string(whose) + "  " + std::to_string(std::lround(point.x)) + ", " +
           std::to_string(std::lround(point.y));
}

bool isNear(const Point& a, const Point& b)
{
    return std::hypot(a.x - b.x, a.y - b.y) < 1e-9;
}

/// A port on the edge of a card that is turned.
struct Example {
    RoundedRectNode card{{0, 0, 120, 70}, 6};
    EllipseNode port{Ellipse({-4, -4, 8, 8})};

    Example()
    {
        card.setPosition({150, 25});
        card.rotateDegrees(20);
        port.setPosition({120, 35}); // in the card's coordinates
        port.setParent(card);
    }
};

} // namespace

QImage coordinatesPage()
{
    Sketch sketch(380, 155);
    Example example;
    auto& [card, port] = example;
    card.setDrawStyle(Sketch::smooth(Sketch::line(1), Fill(Sketch::kBlue)));
    port.setDrawStyle(Sketch::smooth(Sketch::line(1), Fill(Sketch::kAmber)));
    sketch.scene().addNode(card);

    const Point inScene = port.mapLocalToScene({0, 0});
    const Point inCard = card.mapSceneToLocal(inScene);
    const auto bounds = port.mapLocalRectToSceneRect(port.getBoundingRect());

    ContainerNode origin;
    origin.setPosition({10, 10});
    sketch.scene().addNode(origin);
    addAxes(origin, 40);
    addAxes(card, 40);
    sketch.words("the scene", {38, 22}, 7);
    sketch.words("the card", {188, 58}, 7);
    sketch.words(written("in the port", port.mapSceneToLocal(inScene)), {315, 90});
    sketch.words(written("in the card", inCard), {315, 104});
    sketch.words(written("in the scene", inScene), {315, 118});
    const bool isRight = isNear(inCard, {120, 35}) && bounds.contains(inScene);
    return isRight ? sketch.picture() : QImage();
}
