#include "nodes/effects/boxblur.h"

#include "nodes/effects/boxpatches.h"
#include "nodes/effects/boxstrips.h"
#include "nodes/effects/effectlayer.h"
#include "nodes/effects/effectplacement.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tova2 {

namespace {

constexpr double kSoftest = 8; // pixels; beyond it smaller pictures do
constexpr double kFarthest = 1e6;
constexpr int kKeptPixels = 1 << 16; // larger boxes are laid out of shared pieces at each paint

/// A box's extent along one axis, and the pieces that it is laid out of.
struct Span {
    int start, startEnd, endStart, end; ///< of the first corner, and of the last
    int startPhase, endPhase;

    Span(double from, double to, int outside, int inside)
    {
        const double step = BoxPatch::kPhases;
        const double first = std::round(from * step) / step, last = std::round(to * step) / step;
        const double firstPixel = std::floor(first), lastPixel = std::ceil(last);
        startPhase = static_cast<int>((first - firstPixel) * step);
        endPhase = static_cast<int>((lastPixel - last) * step);
        start = static_cast<int>(firstPixel) - outside;
        startEnd = static_cast<int>(firstPixel) + inside;
        endStart = static_cast<int>(lastPixel) - inside;
        end = static_cast<int>(lastPixel) + outside;
    }
};

class SoftBox {
public:
    /// `exposed` is all that needs painting, and `hidden` is covered by the node afterwards.
    SoftBox(const BoxEdge& edge, const QRectF& box, const QRect& exposed, const QRectF& hidden)
        : m_edge(edge)
        , m_x(box.left(), box.right(), edge.outside(Qt::Horizontal), edge.inside(Qt::Horizontal))
        , m_y(box.top(), box.bottom(), edge.outside(Qt::Vertical), edge.inside(Qt::Vertical))
        , m_exposed(exposed)
        , m_hidden(hidden)
    {}

    bool hasRoom() const { return m_x.startEnd <= m_x.endStart && m_y.startEnd <= m_y.endStart; }
    void paint(PaintContext& context) const;

private:
    void paintPieces(QPainter& painter) const;
    BoxStripsKey stripsKey() const;
    BoxStrips madeStrips(const BoxStripsKey& key) const;
    QPoint place() const { return {m_x.start, m_y.start}; }
    QRect all() const { return {place(), QSize(m_x.end - m_x.start, m_y.end - m_y.start)}; }
    void drawCorners(QPainter& painter, BoxPatch& patch) const;
    void drawLevelSides(QPainter& painter, BoxPatch& patch) const;
    void drawUprightSides(QPainter& painter, BoxPatch& patch) const;
    void drawUpright(QPainter& painter, const QImage& side, int x, int left, int right) const;
    void drawLevel(QPainter& painter, const QImage& side, int y, int top, int bottom) const;

    BoxEdge m_edge;
    Span m_x, m_y;
    QRect m_exposed;
    QRectF m_hidden;
};

void SoftBox::drawCorners(QPainter& painter, BoxPatch& patch) const
{
    painter.drawImage(QPoint(m_x.start, m_y.start),
                      patch.corner(BoxPatch::TopLeft, m_x.startPhase, m_y.startPhase));
    painter.drawImage(QPoint(m_x.endStart, m_y.start),
                      patch.corner(BoxPatch::TopRight, m_x.endPhase, m_y.startPhase));
    painter.drawImage(QPoint(m_x.start, m_y.endStart),
                      patch.corner(BoxPatch::BottomLeft, m_x.startPhase, m_y.endPhase));
    painter.drawImage(QPoint(m_x.endStart, m_y.endStart),
                      patch.corner(BoxPatch::BottomRight, m_x.endPhase, m_y.endPhase));
}

/// The columns `left` to `right` of a side whose picture begins at `x`.
void SoftBox::drawUpright(QPainter& painter, const QImage& side, int x, int left, int right) const
{
    const int first = std::max(m_y.startEnd, m_exposed.top());
    const int end = std::min(m_y.endStart, m_exposed.bottom() + 1);
    for (int y = first; left < right && y < end; y += BoxPatch::kEdgeLength)
        painter.drawImage(
            QPoint(left, y), side,
            QRect(left - x, 0, right - left, std::min(BoxPatch::kEdgeLength, end - y)));
}

void SoftBox::drawLevel(QPainter& painter, const QImage& side, int y, int top, int bottom) const
{
    const int first = std::max(m_x.startEnd, m_exposed.left());
    const int end = std::min(m_x.endStart, m_exposed.right() + 1);
    for (int x = first; top < bottom && x < end; x += BoxPatch::kEdgeLength)
        painter.drawImage(
            QPoint(x, top), side,
            QRect(0, top - y, std::min(BoxPatch::kEdgeLength, end - x), bottom - top));
}

void SoftBox::drawLevelSides(QPainter& painter, BoxPatch& patch) const
{
    int topEnd = m_y.startEnd, bottomStart = m_y.endStart;
    if (m_hidden.left() <= m_x.startEnd && m_hidden.right() >= m_x.endStart) {
        const int top = static_cast<int>(std::ceil(m_hidden.top()));
        const int bottom = static_cast<int>(std::floor(m_hidden.bottom()));
        topEnd = bottom >= topEnd ? std::min(topEnd, top) : topEnd;
        bottomStart = top <= bottomStart ? std::max(bottomStart, bottom) : bottomStart;
    }
    drawLevel(painter, patch.side(BoxPatch::Top, m_y.startPhase), m_y.start, m_y.start, topEnd);
    drawLevel(painter, patch.side(BoxPatch::Bottom, m_y.endPhase), m_y.endStart, bottomStart,
              m_y.end);
}

void SoftBox::drawUprightSides(QPainter& painter, BoxPatch& patch) const
{
    int leftEnd = m_x.startEnd, rightStart = m_x.endStart;
    if (m_hidden.top() <= m_y.startEnd && m_hidden.bottom() >= m_y.endStart) {
        const int left = static_cast<int>(std::ceil(m_hidden.left()));
        const int right = static_cast<int>(std::floor(m_hidden.right()));
        leftEnd = right >= leftEnd ? std::min(leftEnd, left) : leftEnd;
        rightStart = left <= rightStart ? std::max(rightStart, right) : rightStart;
    }
    drawUpright(painter, patch.side(BoxPatch::Left, m_x.startPhase), m_x.start, m_x.start, leftEnd);
    drawUpright(painter, patch.side(BoxPatch::Right, m_x.endPhase), m_x.endStart, rightStart,
                m_x.end);
}

void SoftBox::paintPieces(QPainter& painter) const
{
    BoxPatches& patches = BoxPatches::instance();
    BoxPatch& patch = patches.patch(m_edge);
    drawCorners(painter, patch);
    drawLevelSides(painter, patch);
    drawUprightSides(painter, patch);
    patches.account();
    const QRect middle(m_x.startEnd, m_y.startEnd, m_x.endStart - m_x.startEnd,
                       m_y.endStart - m_y.startEnd);
    if (m_hidden.contains(middle))
        return;
    QColor color = QColor::fromRgba(m_edge.color);
    color.setAlphaF(color.alphaF() * std::min(m_edge.gain, 1.0));
    painter.fillRect(middle, color);
}

BoxStripsKey SoftBox::stripsKey() const
{
    const QPoint least(static_cast<int>(std::ceil(m_hidden.left())),
                       static_cast<int>(std::ceil(m_hidden.top())));
    const QPoint end(static_cast<int>(std::floor(m_hidden.right())),
                     static_cast<int>(std::floor(m_hidden.bottom())));
    const QRect covered = m_hidden.isValid() ? QRect(least, end - QPoint(1, 1)) : QRect();
    const int phases =
        ((m_x.startPhase * BoxPatch::kPhases + m_x.endPhase) * BoxPatch::kPhases + m_y.startPhase) *
            BoxPatch::kPhases +
        m_y.endPhase;
    return {m_edge, all().size(), phases,
            covered.isEmpty() ? QRect() : covered.translated(-place())};
}

BoxStrips SoftBox::madeStrips(const BoxStripsKey& key) const
{
    QImage picture(key.size, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return {};
    picture.fill(Qt::transparent);
    SoftBox whole = *this;
    whole.m_exposed = all();
    QPainter painter(&picture);
    painter.translate(-place());
    whole.paintPieces(painter);
    painter.end();
    return BoxStrips(picture, key.covered);
}

void SoftBox::paint(PaintContext& context) const
{
    if (!all().intersects(m_exposed))
        return;
    if (all().width() > kKeptPixels / all().height())
        return paintPieces(context.pixelPainter());
    const BoxStripsKey key = stripsKey();
    BoxStripsCache& cache = BoxStripsCache::instance();
    const BoxStrips* found = cache.find(key);
    const BoxStrips strips = found ? BoxStrips() : madeStrips(key);
    for (const BoxStrips::Strip& strip : (found ? *found : strips).strips)
        context.drawPixels(place() + strip.corner, strip.image);
    if (!found)
        cache.keep(key, strips);
}

} // namespace

bool paintSoftBox(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    const auto box = node.silhouetteBox(context.options().viewScale);
    const bool isHidden = node.hidesItsSilhouette() && context.opacity() >= 1;
    const EffectPlacement place(node, layer, context);
    if (!box || (layer.masksNode && !isHidden) || !context.isOnPixels() ||
        place.toPixels.type() > QTransform::TxScale ||
        std::max(place.deviationX, place.deviationY) > kSoftest)
        return false;
    const QRectF silhouette = place.toPixels.mapRect(box->rect);
    const QRectF pixels = silhouette.translated(place.offset);
    constexpr QRectF kNear(-kFarthest, -kFarthest, 2 * kFarthest, 2 * kFarthest);
    const double stretch = std::abs(place.toPixels.m11());
    const bool isRound = box->radius > 0;
    if (!kNear.contains(pixels) ||
        (isRound && !almostEqual(stretch, std::abs(place.toPixels.m22()))))
        return false;
    const BoxEdge edge{box->radius * stretch, place.deviationX, place.deviationY, layer.gain,
                       layer.color.rgba()};
    // The square between the middles of the corners' arcs hides all within, but for the edges' own
    // pixels.
    const double corner = box->radius * stretch * (1 - std::numbers::sqrt2 / 2) + 1;
    const SoftBox soft(edge, pixels, context.exposedPixels().toAlignedRect(),
                       isHidden ? silhouette.adjusted(corner, corner, -corner, -corner) : QRectF());
    if (!soft.hasRoom())
        return false;
    soft.paint(context);
    return true;
}

} // namespace Tova2
