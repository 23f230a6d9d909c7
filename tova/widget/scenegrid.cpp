#include "widget/scenegrid.h"

#include "nodes/values.h"

#include <QColor>
#include <QPainter>

#include <cmath>

namespace Tova2 {

namespace {

constexpr double kBorder = 5;   // scene units around the scene's bounds
constexpr double kSpacing = 10; // scene units, halved or doubled with the zoom
constexpr double kClosest = 10; // view pixels between two lines
constexpr int kLinesAMajor = 5;
constexpr QRgb kMinor = 0x1a3c5a78; // faint: the grid must not compete with the diagram
constexpr QRgb kMajor = 0x333c5a78;

double spacingAt(double scale)
{
    return kSpacing * std::exp2(std::ceil(std::log2(kClosest / (kSpacing * scale))));
}

QColor colorOf(double line)
{
    return QColor::fromRgba(std::fmod(line, kLinesAMajor) == 0 ? kMajor : kMinor);
}

/// On whole device pixels: a line that is spread over two is twice as wide and half as dark.
double snapped(double position, double ratio)
{
    return std::floor(position * ratio) / ratio;
}

} // namespace

QRectF SceneGrid::follow(const QRectF& sceneBounds)
{
    if (isSame(sceneBounds, m_bounds))
        return {};
    const QRectF before = area();
    m_bounds = sceneBounds;
    return before.united(area());
}

QRectF SceneGrid::area() const
{
    return m_bounds.isEmpty() || !isFinite(m_bounds)
               ? QRectF()
               : m_bounds.adjusted(-kBorder, -kBorder, kBorder, kBorder);
}

void SceneGrid::paint(QPainter& painter, const QTransform& view, const QRectF& part) const
{
    const QRectF shown = view.mapRect(area()) & part;
    const double spacing = spacingAt(view.m11());
    if (shown.isEmpty() || !std::isfinite(spacing))
        return;
    const double ratio = painter.device()->devicePixelRatioF();
    const QRectF lines = view.inverted().mapRect(shown);
    const double last = std::floor(lines.right() / spacing);
    for (double line = std::ceil(lines.left() / spacing); line <= last; ++line) {
        const double x = snapped(line * spacing * view.m11() + view.dx(), ratio);
        painter.fillRect(QRectF(x, shown.y(), 1 / ratio, shown.height()), colorOf(line));
    }
    const double lowest = std::floor(lines.bottom() / spacing);
    for (double line = std::ceil(lines.top() / spacing); line <= lowest; ++line) {
        const double y = snapped(line * spacing * view.m22() + view.dy(), ratio);
        painter.fillRect(QRectF(shown.x(), y, shown.width(), 1 / ratio), colorOf(line));
    }
}

} // namespace Tova2
