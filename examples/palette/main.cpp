// A palette over a diagram: a panel that stays at the canvas's edge while the user pans and zooms.
// Given the name of a file it plays the user, writes what the window shows, and ends.
#include "shapes.h"
#include "shapetool.h"

#include <QApplication>

using namespace Tova2;
using Vetra::Color;
using Vetra::Holder;
using Vetra::StringID;

namespace {

RoundedRectNode makeButton(const std::string& kind)
{
    RoundedRectNode button({0, 0, 44, 34}, 4);
    button.setDrawStyle(smooth(Stroke::NoStroke(), Fill(Color(1, 1, 1, 0.08))));
    button.addTag(ShapeTool::kindTag(), kind);
    ShapeNode icon(shapeOf(kind, {9, 9, 26, 16}));
    icon.setDrawStyle(smooth(line(2, Color(1, 1, 1, 0.92)), Fill(Color(1, 1, 1, 0.16))));
    icon.setParent(button);
    return button;
}

Holder<AutoLayoutPanel> makePalette(GLCanvas& canvas)
{
    Holder<AutoLayoutPanel> palette(new AutoLayoutPanel);
    palette->suspendLayout(); // one layout for all that follows
    palette->setNonLinearScaleFunction(ConstantLodScale::instance()); // as large at every zoom
    palette->setExpandMode(AutoLayoutPanel::ExpandMode::None);        // one a row
    palette->setVAlign(VerticalAlignment::Bottom);
    palette->setPadding(4);
    palette->setCanvasAffinity(CanvasAffinity::Left);
    for (const std::string& kind : shapeKinds())
        palette->addNode(StringID(kind), makeButton(kind));
    palette->installOnCanvas(canvas);
    palette->resumeLayout();
    return palette;
}

Holder<AutoLayoutPanel> makeHint(GLCanvas& canvas)
{
    Holder<AutoLayoutPanel> hint(new AutoLayoutPanel);
    hint->setPanelStyle(AutoLayoutPanel::PanelStyle::YellowTranslucent);
    hint->setNonLinearScaleFunction(ConstantLodScale::instance());
    hint->setPadding(6);
    hint->setCanvasAffinity(CanvasAffinity::TopRight);
    TextNode words("pick a figure, then click where it goes");
    words.setFont(Vetra::Font("DejaVu Sans", 10));
    hint->addNode(words);
    hint->installOnCanvas(canvas);
    return hint;
}

void connect(Scene& scene, const Vetra::GLPoint<double>& from, const Vetra::GLPoint<double>& to)
{
    const Stroke ink = line(1.5, Color(0.16, 0.2, 0.3));
    LineNode connector(from, to);
    connector.setDrawStyle(smooth(ink, Fill::NoFill()));
    connector.setEndDecoration(LineEndings::createFilledArrow(ink));
    scene.addNode(connector);
}

void addDiagram(Scene& scene)
{
    scene.addNode(makeFigure("end", {0, 0}, "start"));
    scene.addNode(makeFigure("step", {0, 90}, "measure"));
    scene.addNode(makeFigure("decision", {0, 180}, "too hot?"));
    scene.addNode(makeFigure("data", {160, 180}, "alarm"));
    connect(scene, {0, 25}, {0, 65});
    connect(scene, {0, 115}, {0, 155});
    connect(scene, {45, 180}, {122, 180});
}

/// What a user would do: picks the figure for an end and puts it below the decision.
bool play(Scene& scene, GLCanvas& canvas, const AutoLayoutPanel& palette)
{
    EventTestDriver user(scene, &canvas);
    user.click(palette.getNode(StringID("end")));
    user.click(Vetra::GLPoint<double>{160, 90});
    user.click(palette.getNode(StringID("decision")));
    return !scene.getNodesAtScenePos({160, 90}).empty();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto scene = Scene::createScene();
    addDiagram(*scene);
    auto* const viewer = new Viewer(scene.get());
    viewer->showAt({200, 200, 640, 420});
    GLCanvas& canvas = *viewer->getCanvas();
    canvas.setMargins({80, 30, 30, 30});
    canvas.zoomToSceneRect();

    const auto palette = makePalette(canvas);
    const auto hint = makeHint(canvas);
    scene->addTool(new ShapeTool(canvas));
    if (argc < 2)
        return QApplication::exec();

    QApplication::processEvents();
    const bool isDone = play(*scene, canvas, *palette);
    QApplication::processEvents();
    canvas.getCanvasSnapshotWithWebBlock().toImage()->savePng(argv[1]);
    viewer->close();
    return isDone ? 0 : 1;
}
