#include "nodes/effects/softbox.h"

#include "nodes/cachebudget.h"
#include "nodes/effects/boxcoverage.h"
#include "nodes/effects/effectlayer.h"
#include "nodes/effects/effectplacement.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"

#include <boost/container/static_vector.hpp>
#include <boost/container_hash/hash.hpp>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <unordered_map>

// A box's picture is made of the pixels that it softens: around what the node covers, or what is of
// one colour. Small boxes are many and alike, so theirs is kept whole, for each part of a pixel
// that their edges may lie at; of a large box only the exposed pixels are made, at each paint.

namespace Tova2 {

namespace {

constexpr double kSoftest = 8;    // pixels; beyond it smaller pictures do
constexpr double kFarthest = 5e8; // pixels; within the range of whole numbers
constexpr double kPhases = 8;     // parts of a pixel that edges lie at: finer steps are not seen
constexpr int kKeptPixels = 1 << 16;

/// What is left of a rectangle around another one, in rows from above.
using Frame = boost::container::static_vector<QRect, 4>;
Frame frameAround(const QRect& all, const QRect& within)
{
    const QRect hole = all & within;
    if (hole.isEmpty())
        return {all};
    Frame frame;
    const auto add = [&](int left, int top, int right, int bottom) {
        if (left < right && top < bottom)
            frame.emplace_back(left, top, right - left, bottom - top);
    };
    const int right = all.right() + 1, holeRight = hole.right() + 1, holeBottom = hole.bottom() + 1;
    add(all.left(), all.top(), right, hole.top());
    add(all.left(), hole.top(), hole.left(), holeBottom);
    add(holeRight, hole.top(), right, holeBottom);
    add(all.left(), holeBottom, right, all.bottom() + 1);
    return frame;
}

/// A softened box from its own corner, which whole pixels move.
struct Key {
    BoxCoverage::Look look;
    double x, y, width, height; ///< of the box; from the corner
    QRect hole;                 ///< the same; what the node covers afterwards

    bool operator==(const Key&) const = default;
    struct Hash {
        std::size_t operator()(const Key& key) const noexcept
        {
            std::size_t hash = key.look.color;
            for (const double value : {key.look.radiusX, key.look.deviationX, key.look.gain, key.x,
                                       key.y, key.width, key.height})
                boost::hash_combine(hash, value);
            boost::hash_combine(hash, key.hole.width());
            return hash;
        }
    };
};

struct Piece {
    QPoint corner;
    QImage image;
};
using Pieces = boost::container::static_vector<Piece, 4>;

/// Pictures in use, within the common budget.
class Cache {
public:
    static Cache& instance()
    {
        // Never destroyed: so is the budget that its shares call.
        static auto* const cache = new Cache;
        return *cache;
    }

    /// Null when there are none; good until `keep`.
    const Pieces* find(const Key& key)
    {
        const auto found = m_kept.find(key);
        if (found == m_kept.end())
            return nullptr;
        found->second.share->touch();
        return &found->second.pieces;
    }

    void keep(const Key& key, const Pieces& pieces)
    {
        std::size_t bytes = sizeof(Kept);
        for (const Piece& piece : pieces)
            bytes += static_cast<std::size_t>(piece.image.sizeInBytes());
        auto share =
            std::make_unique<CacheBudget::Share>(bytes, [this, key] { m_kept.erase(key); });
        m_kept.insert_or_assign(key, Kept{pieces, std::move(share)});
    }

private:
    struct Kept {
        Pieces pieces;
        std::unique_ptr<CacheBudget::Share> share;
    };

    std::unordered_map<Key, Kept, Key::Hash> m_kept;
};

class SoftBox {
public:
    /// `hidden` is what the node covers afterwards.
    SoftBox(const QRectF& box, const BoxCoverage::Look& look, const QRectF& hidden)
        : m_look(look)
        , m_corner(std::floor(box.left()), std::floor(box.top()))
        , m_box(QPointF(atPhase(box.left()), atPhase(box.top())) - m_corner,
                QPointF(atPhase(box.right()), atPhase(box.bottom())) - m_corner)
        , m_hidden(wholePixels(hidden.translated(-m_corner)))
    {}

    void paint(PaintContext& context) const
    {
        const QRect exposed = context.exposedPixels().toAlignedRect().translated(-m_corner);
        // More than its reach, but known without it.
        const double around = 3 * std::max(m_look.deviationX, m_look.deviationY) + 1;
        const QRectF near = m_box.adjusted(-around, -around, around, around);
        if (!near.intersects(exposed))
            return;
        if (near.width() * near.height() > kKeptPixels)
            return paintExposed(context, exposed);
        const Key key{m_look, m_box.x(), m_box.y(), m_box.width(), m_box.height(), m_hidden};
        Cache& cache = Cache::instance();
        if (const Pieces* const found = cache.find(key))
            return draw(*found, context);
        const BoxCoverage coverage(m_box, m_look);
        const Pieces made = pieces(coverage, frameAround(coverage.reach(), m_hidden));
        draw(made, context);
        cache.keep(key, made);
    }

private:
    static double atPhase(double value) { return std::round(value * kPhases) / kPhases; }
    static QRect wholePixels(const QRectF& rect)
    {
        const QPoint first(static_cast<int>(std::ceil(rect.left())),
                           static_cast<int>(std::ceil(rect.top())));
        const QPoint end(static_cast<int>(std::floor(rect.right())),
                         static_cast<int>(std::floor(rect.bottom())));
        const QRect whole(first, end - QPoint(1, 1));
        return whole.isEmpty() ? QRect() : whole;
    }

    static Pieces pieces(const BoxCoverage& coverage, const Frame& frame)
    {
        Pieces made;
        for (const QRect& part : frame) {
            const QImage image = coverage.picture(part);
            if (!image.isNull())
                made.push_back({part.topLeft(), image});
        }
        return made;
    }

    void draw(const Pieces& pieces, PaintContext& context) const
    {
        for (const Piece& piece : pieces)
            context.drawPixels(m_corner + piece.corner, piece.image);
    }

    void paintExposed(PaintContext& context, const QRect& exposed) const
    {
        const BoxCoverage coverage(m_box, m_look);
        const QRect plain = m_hidden.isEmpty() ? coverage.plain() : m_hidden;
        if (m_hidden.isEmpty() && plain.intersects(exposed))
            context.pixelPainter().fillRect(
                (plain & exposed).translated(m_corner),
                QColor::fromRgba(qUnpremultiply(coverage.plainColor())));
        draw(pieces(coverage, frameAround(coverage.reach() & exposed, plain)), context);
    }

    BoxCoverage::Look m_look;
    QPoint m_corner;
    QRectF m_box; ///< from the corner
    QRect m_hidden;
};

} // namespace

bool paintSoftBox(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    const auto box = node.silhouetteBox(context.options().viewScale);
    const bool isHidden = node.hidesItsSilhouette() && context.opacity() >= 1;
    if (!box || (layer.masksNode && !isHidden) || !context.isOnPixels())
        return false;
    const EffectPlacement place(node, layer, context);
    if (place.toPixels.type() > QTransform::TxScale ||
        std::max(place.deviationX, place.deviationY) > kSoftest)
        return false;
    const QRectF silhouette = place.toPixels.mapRect(box->rect);
    const QRectF pixels = silhouette.translated(place.offset);
    constexpr QRectF kNear(-kFarthest, -kFarthest, 2 * kFarthest, 2 * kFarthest);
    if (!kNear.contains(pixels))
        return false;
    const BoxCoverage::Look look{box->radius * std::abs(place.toPixels.m11()),
                                 box->radius * std::abs(place.toPixels.m22()),
                                 place.deviationX,
                                 place.deviationY,
                                 layer.gain,
                                 layer.color.rgba()};
    // The square between the middles of the corners' arcs hides all within, but for the edges' own
    // pixels.
    const double share = 1 - std::numbers::sqrt2 / 2;
    const double x = look.radiusX * share + 1, y = look.radiusY * share + 1;
    SoftBox(pixels, look, isHidden ? silhouette.adjusted(x, y, -x, -y) : QRectF()).paint(context);
    return true;
}

} // namespace Tova2
