#include "tova/widget/dragpreview.h"

#include "nodes/values.h"

#include "tova/nodes/node.h"
#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr double kLongest = 400; // in view pixels
constexpr double kOpacity = 0.7;

/// A node as it is drawn, in its own coordinates.
struct Piece {
    QPixmap pixels;
    QRectF local;
    QTransform toScene;
};

QTransform toScene(const Node& node)
{
    const QPointF origin = Vetra::toQt(node.mapLocalToScene({0, 0}));
    const QPointF x = Vetra::toQt(node.mapLocalToScene({1, 0})) - origin;
    const QPointF y = Vetra::toQt(node.mapLocalToScene({0, 1})) - origin;
    return {x.x(), x.y(), y.x(), y.y(), origin.x(), origin.y()};
}

bool isWithin(Node node, const std::vector<Node>& nodes)
{
    for (node = node.getParent(); node.isValid(); node = node.getParent()) {
        if (std::find(nodes.begin(), nodes.end(), node) != nodes.end())
            return true;
    }
    return false;
}

/// Those that are not drawn with another one, bottom first.
std::vector<Node> rootsOf(const std::vector<Node>& nodes)
{
    std::vector<Node> roots;
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
        if (node->isValid() && node->isVisible() && !isWithin(*node, nodes))
            roots.push_back(*node);
    }
    return roots;
}

QRectF areaOf(const std::vector<Node>& nodes)
{
    QRectF area;
    for (const Node& node : nodes)
        area |= toScene(node).mapRect(Vetra::toQt(node.getBoundingRect()));
    return area;
}

/// `scale` is in device pixels a scene unit.
std::vector<Piece> piecesOf(const std::vector<Node>& nodes, double scale)
{
    std::vector<Piece> pieces;
    for (const Node& node : nodes) {
        const QTransform place = toScene(node);
        const double local = scale * std::sqrt(std::abs(place.determinant()));
        Vetra::GLPoint<double> offset{};
        const auto pixmap = node.renderToPixmap(CacheType::NoCache, local, offset);
        if (!pixmap.isNull())
            pieces.push_back({Vetra::toQt(pixmap),
                              {offset.x, offset.y, pixmap.width() / local, pixmap.height() / local},
                              place});
    }
    return pieces;
}

QImage draw(const std::vector<Piece>& pieces, const QRectF& area, double scale)
{
    const QSizeF size = area.size() * scale;
    QImage image(int(std::ceil(size.width())), int(std::ceil(size.height())),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QTransform toImage =
        QTransform::fromTranslate(-area.x(), -area.y()) * QTransform::fromScale(scale, scale);
    for (const Piece& piece : pieces) {
        painter.setTransform(piece.toScene * toImage);
        painter.drawPixmap(piece.local, piece.pixels, piece.pixels.rect());
    }
    painter.resetTransform();
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(image.rect(), QColor::fromRgbF(0, 0, 0, kOpacity));
    return image;
}

} // namespace

DragPreview DragPreview::of(const GLCanvas& canvas, const std::vector<Node>& nodes,
                            const Vetra::GLPoint<double>& grabbedAt)
{
    const auto roots = rootsOf(nodes);
    const QRectF area = areaOf(roots);
    const double longest = std::max(area.width(), area.height()) * canvas.getScale();
    if (!isFinite(area) || !(longest > 0))
        return {};
    DragPreview preview;
    preview.pixelsPerViewPixel = canvas.getBackingScaleFactor();
    const double viewScale = canvas.getScale() * std::min(1.0, kLongest / longest);
    const double scale = viewScale * preview.pixelsPerViewPixel;
    const auto pieces = piecesOf(roots, scale);
    QRectF reach;
    for (const Piece& piece : pieces)
        reach |= piece.toScene.mapRect(piece.local);
    // Shadows and glows may reach far.
    reach &= area.marginsAdded(QMarginsF() + kLongest / 8 / viewScale);
    if (reach.isEmpty())
        return {};
    preview.pixmap = Vetra::fromQt(QPixmap::fromImage(draw(pieces, reach, scale)));
    preview.hotSpot = Vetra::fromQt((Vetra::toQt(grabbedAt) - reach.topLeft()) * viewScale);
    return preview;
}

} // namespace Tova2
