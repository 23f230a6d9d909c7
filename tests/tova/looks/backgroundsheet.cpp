#include "looks/sheet.h"

#include <QPainter>
#include <QTemporaryDir>

namespace Tova2::Looks {

namespace {

using Vetra::Color;
using Vetra::Gradient;
using Mode = Gradient::CoordinateMode;

Gradient ramp(Gradient gradient, Mode mode, double opacity = 1)
{
    gradient.addStop(0, Color(0.95, 0.95, 0.7, opacity));
    gradient.addStop(1, Color(0.2, 0.4, 0.7, opacity));
    gradient.setCoordinateMode(mode);
    return gradient;
}

/// A disc in a chequered field, so that distortion and aliasing show.
QImage chequered(const QSize& size, int side)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (int y = 0; y < size.height(); y += side) {
        for (int x = (y / side) % 2 * side; x < size.width(); x += 2 * side)
            painter.fillRect(x, y, side, side, QColor(60, 110, 60, 180));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(230, 120, 30));
    const double radius = std::min(size.width(), size.height()) * 0.4;
    painter.drawEllipse(QRectF(QPointF(), size).center(), radius, radius);
    return image;
}

/// The file is read at once, so that it may go.
Background withImage(Background background, const QImage& image)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ground.png"));
    image.save(path);
    background.setImage(path.toStdString());
    background.hasImage();
    return background;
}

Background coloured(const Color& color, const Gradient& gradient = {})
{
    Background background;
    background.setColor(color);
    background.setGradient(gradient);
    return background;
}

Cell ground(const char* caption, const Background& background, double zoom = 1)
{
    const Rect box{30 / zoom, 18 / zoom, 16 / zoom, 14 / zoom};
    const DrawStyle style = smooth(Stroke(StrokeStyle::SolidLine), Fill(Color(1, 1, 1)));
    Cell cell = cellOf(caption, {styled(RectNode(box), style)}, zoom);
    cell.scene->setBackground(background);
    return cell;
}

} // namespace

Cells backgroundCells()
{
    const Color green(0.7, 0.85, 0.6), faint(0.7, 0.2, 0.2, 0.4);
    const auto across = Gradient::linear({0, 0}, {1, 0});
    const auto inScene = ramp(Gradient::linear({0, 0}, {76, 50}), Mode::Logical);
    const auto spot = ramp(Gradient::radial({38, 25}, 30), Mode::Logical);
    Background missing = coloured(green);
    missing.setImage("/nowhere/at/all.png");
    return {
        ground("none", Background()),
        ground("colour", coloured(green)),
        ground("translucent", coloured(faint)),
        ground("missing image", missing),
        ground("across", coloured(green, ramp(across, Mode::ObjectBounding))),
        ground("radial",
               coloured(green, ramp(Gradient::radial({0.5, 0.5}, 0.5), Mode::ObjectBounding))),
        ground("faint gradient", coloured(faint, ramp(across, Mode::ObjectBounding, 0.5))),
        ground("in the scene", coloured(green, inScene)),
        ground("in the scene x2", coloured(green, inScene), 2),
        ground("spot x0.5", coloured(green, spot), 0.5),
        ground("image", withImage(Background(), chequered({76, 50}, 5))),
        ground("image reduced", withImage(Background(), chequered({400, 400}, 40))),
        ground("image enlarged", withImage(Background(), chequered({20, 40}, 5))),
        ground("image, colour", withImage(coloured(green), chequered({100, 40}, 10))),
        ground("all three", withImage(coloured(faint, ramp(across, Mode::ObjectBounding, 0.5)),
                                      chequered({200, 100}, 20))),
    };
}

} // namespace Tova2::Looks
