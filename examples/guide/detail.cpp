// What follows the zoom, what does not, and what shows only close up.
#include "pages.h"
#include "sketch.h"

using namespace Tova2;

namespace {

struct Row {
    const char* name;
    const LodScale* scale;
};

void addRows(Scene& scene)
{
    static const LinearlyScaleUntilLodScale untilOne(1);
    const Row rows[] = {{"None", LodScale::instance()},
                        {"Constant", ConstantLodScale::instance()},
                        {"ConstantIn", ConstantInLodScale::instance()},
                        {"ConstantOut", ConstantOutLodScale::instance()},
                        {"until 1", &untilOne}};
    double y = 12;
    for (const Row& row : rows) {
        LineNode line({10, y}, {60, y});
        line.setDrawStyle(Sketch::smooth(Sketch::line(3, Sketch::kInk, row.scale)));
        scene.addNode(line);
        TextNode name(row.name);
        name.setFont(Vetra::Font("DejaVu Sans", 6));
        name.setPosition({66, y - 4});
        name.setMinLODQuality(1); // only where it can be read
        scene.addNode(name);
        y += 14;
    }
}

} // namespace

QImage detailPage()
{
    auto scene = Scene::createScene();
    addRows(*scene);
    Sketch ground(380, 128);
    double x = 4;
    const Vetra::GLRect<double> part{0, 0, 115, 78};
    for (const char* const zoom : {"0.5", "1", "2", "3"}) {
        const double width = part.width * std::stod(zoom) / 2;
        ground.words(zoom, {x + width / 2, 122}, 7);
        x += width;
    }
    QImage picture = ground.picture();
    x = 8;
    for (const double zoom : {0.5, 1.0, 2.0, 3.0}) {
        const double height = part.height * zoom;
        scene->render(picture, {x, 234 - height, part.width * zoom, height}, part);
        x += part.width * zoom;
    }
    return picture;
}
