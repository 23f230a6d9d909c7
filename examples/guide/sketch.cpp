#include "sketch.h"

using namespace Tova2;
using Vetra::Color;

const Color Sketch::kInk(0.16, 0.2, 0.3), Sketch::kPaper(0.97, 0.98, 0.99);
const Color Sketch::kBlue(0.82, 0.89, 0.97), Sketch::kAmber(0.99, 0.90, 0.72);
const Color Sketch::kGreen(0.83, 0.93, 0.82);

Sketch::Sketch(double width, double height) : m_width(width), m_height(height)
{
    Background ground;
    ground.setColor(kPaper);
    m_scene->setBackground(ground);
}

DrawStyle Sketch::smooth(const Stroke& stroke, const Fill& fill)
{
    DrawStyle style(stroke, fill);
    style.setIsAntiAliased(true);
    style.setIsPixelAligned(true);
    return style;
}

Stroke Sketch::line(double width, const Color& color, const LodScale* scale)
{
    return Stroke(color, width, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                  StrokeJoinStyle::RoundJoin, scale);
}

RoundedRectNode Sketch::box(const std::string& text, const Rect& rect, const Color& color)
{
    RoundedRectNode box(rect, 5);
    box.setDrawStyle(smooth(line(1), Fill(color)));
    m_scene->addNode(box);
    words(text, rect.center());
    return box;
}

void Sketch::arrow(const Point& from, const Point& to, bool isDashed)
{
    Stroke stroke = line(1);
    LineNode shaft(from, to);
    shaft.setEndDecoration(LineEndings::createFilledArrow(stroke, 7));
    if (isDashed)
        stroke.setStyle(StrokeStyle::DashLine);
    shaft.setDrawStyle(smooth(stroke));
    m_scene->addNode(shaft);
}

void Sketch::words(const std::string& text, const Point& middle, double size)
{
    TextNode label(text);
    label.setFont(Vetra::Font("DejaVu Sans", size));
    label.setRect({middle.x, middle.y, 0, 0});
    label.setHorizontalAlignment(HorizontalAlignment::Middle);
    label.setVerticalAlignment(VerticalAlignment::Middle);
    label.setColor(kInk);
    m_scene->addNode(label);
}

QImage Sketch::picture()
{
    QImage image(QSize(static_cast<int>(2 * m_width), static_cast<int>(2 * m_height)),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    m_scene->render(image, {}, {0, 0, m_width, m_height});
    return image;
}
