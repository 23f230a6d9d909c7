// What makes a diagram look finished: styles, effects, a background, and less detail at small
// zooms. Writes the picture of docs/guide/looks.md.
#include <tova/tova.h>

#include <QApplication>
#include <QImage>

#include <string>
#include <vector>

using namespace Tova2;
using Vetra::Color;

namespace {

const Color kInk(0.16, 0.2, 0.3), kCard(1, 1, 1), kAccent(0.95, 0.6, 0.15), kFault(0.8, 0.15, 0.15);
constexpr double kColumn = 118, kRow = 96;

Stroke line(double width, const Color& color = kInk, StrokeStyle style = StrokeStyle::SolidLine)
{
    return Stroke(color, width, style, StrokeCapStyle::RoundCap, StrokeJoinStyle::RoundJoin,
                  LodScale::instance());
}

DrawStyle smooth(const Stroke& stroke, const Fill& fill, const Effect& effect = {})
{
    DrawStyle style(stroke, fill);
    style.setEffect(effect);
    style.setIsAntiAliased(true);
    style.setIsPixelAligned(true); // crisp level lines, whatever the zoom and the screen
    return style;
}

Fill ramp(const Color& top, const Color& bottom)
{
    auto gradient = Vetra::Gradient::linear({0, 0}, {0, 1});
    gradient.setCoordinateMode(Vetra::Gradient::CoordinateMode::ObjectBounding);
    gradient.addStop(0, top);
    gradient.addStop(1, bottom);
    return Fill(gradient);
}

TextNode label(const std::string& words, const Vetra::GLRect<double>& box, double size = 10)
{
    TextNode text(words);
    text.setFont(Vetra::Font("DejaVu Sans", size));
    text.setRect(box);
    text.setHorizontalAlignment(HorizontalAlignment::Middle);
    text.setVerticalAlignment(VerticalAlignment::Middle);
    text.setColor(kInk);
    return text;
}

/// Cards on a grid, each with a label.
class Board {
public:
    void add(const std::string& words, const DrawStyle& style, const Effect& ofLabel = {})
    {
        const double x = m_count % 6 * kColumn, y = m_count / 6 * kRow;
        ++m_count;
        RoundedRectNode card({0, 0, 90, 56}, 8);
        card.setDrawStyle(style);
        card.setPosition({x, y});
        scene->addNode(card);
        TextNode text = label(words, {0, 0, 90, 56});
        text.setEffect(ofLabel);
        text.setParent(card);
    }
    Vetra::Holder<Scene> scene = Scene::createScene();

private:
    int m_count = 0;
};

Board makeBoard()
{
    Board board;
    const Fill card(kCard), blue = ramp(Color(0.92, 0.96, 1), Color(0.62, 0.77, 0.94));
    board.add("plain", smooth(line(1.5), card));
    board.add("gradient", smooth(line(1.5), blue));
    board.add("dashes", smooth(line(1.5, kInk, StrokeStyle::DashLine), card));
    board.add("no outline", smooth(Stroke::NoStroke(), blue));
    board.add("translucent", smooth(line(1.5), Fill(Color(1, 1, 1, 0.4))));
    board.add("wide", smooth(line(4, Color(0.3, 0.5, 0.75)), card));

    const auto shadow = Effect::createEffect(Effect::Shadow(0.5, 5, {2, 3}, true));
    const auto glow = Effect::createEffect(Effect::Glow(kAccent, 8, true, 2));
    const Effect::Trace frame(line(2, kAccent), StrokeInsetType::Outer);
    const auto fault = Effect::createEffect(Effect::Squiggly(kFault));
    Effect both = shadow;
    both.combine(Effect::createEffect(Effect::Overlay(Color(0.95, 0.6, 0.15, 0.25))));
    board.add("shadow", smooth(line(1.5), card, shadow));
    board.add("glow", smooth(line(1.5), card, glow));
    board.add("overlay", smooth(line(1.5), blue,
                                Effect::createEffect(Effect::Overlay(Color(0.8, 0.1, 0.1, 0.3)))));
    board.add("trace", smooth(line(1.5), card, Effect::createEffect(frame)));
    board.add("mispelt", smooth(line(1.5), card), fault);
    board.add("two effects", smooth(line(1.5), card, both));

    Background background;
    background.setColor(Color(0.97, 0.98, 0.99));
    auto sky = Vetra::Gradient::linear({0, 0}, {0, 1});
    sky.setCoordinateMode(Vetra::Gradient::CoordinateMode::ObjectBounding);
    sky.addStop(0, Color(0.8, 0.87, 0.94, 0.2));
    sky.addStop(1, Color(0.7, 0.8, 0.9, 0.8));
    background.setGradient(sky);
    board.scene->setBackground(background);
    return board;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const Board board = makeBoard();
    constexpr double kScale = 1.25;
    QImage picture(960, 420, QImage::Format_RGB32);
    picture.fill(Qt::white);
    board.scene->render(picture, {0, 0, 960, 275}, {-28, -30, 960 / kScale, 275 / kScale});
    // The same scene far out: the library itself leaves out what would be too small to see.
    double x = 0;
    for (const double scale : {0.65, 0.4, 0.2}) {
        const Vetra::GLRect<double> part{-28, -25, 736, 202};
        const double width = part.width * scale;
        board.scene->render(picture, {x, 285, width, part.height * scale}, part);
        x += width + 10;
    }
    return application.arguments().size() > 1 && picture.save(application.arguments()[1]) ? 0 : 1;
}
