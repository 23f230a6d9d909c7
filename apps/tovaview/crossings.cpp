#include "crossings.h"

#include <QElapsedTimer>

namespace TovaView {

double findCrossings(DiagramScene& diagram)
{
    Tova2::Scene& scene = *diagram.scene;
    for (const Tova2::Node& node : diagram.hidden)
        scene.addNode(node);
    QElapsedTimer timer;
    timer.start();
    scene.findPathIntersections();
    const double milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    diagram.crossings = scene.pathIntersectionsCount();
    // A mark where a line meets nothing that can be seen would only puzzle.
    for (const Tova2::Node& node : diagram.hidden)
        scene.removeNode(node);
    scene.findPathIntersections();
    return milliseconds;
}

} // namespace TovaView
