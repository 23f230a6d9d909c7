#include "scene/nodecache.h"

#include "nodes/cachebudget.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "scene/scenecounters.h"
#include "scene/sceneprivate.h"

#include "vetra/qt.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

struct NodeCache::Picture {
    const NodeImpl* node;
    QTransform placement; ///< local to the picture, whose translation is the phase plus the
                          ///< origin's offset
    double pixelRatio;
    double opacity; ///< of each stroke and fill, which differs from that of the whole picture
    std::uint8_t quality;
    double smallestText;
    QImage image;
    std::unique_ptr<CacheBudget::Share> share;

    bool isFor(const Picture& other) const
    {
        return placement == other.placement && pixelRatio == other.pixelRatio &&
               opacity == other.opacity && quality == other.quality &&
               smallestText == other.smallestText;
    }
};

namespace {

// Item caches serve several canvases at several zooms.
constexpr std::size_t kPicturesOfItemCache = 4;
constexpr int kMargin = 2; // pixels, for antialiasing

/// Whole pixels that are whole units as well, or 1. A picture that begins at a multiple of them
/// rounds the rows of letters as the device does.
int stepOf(double pixelRatio)
{
    constexpr int kLongest = 16;
    for (int step = 1; step <= kLongest; ++step) {
        const double units = step / pixelRatio;
        if (std::abs(units - std::round(units)) < 1e-9)
            return step;
    }
    return 1;
}

/// Every pixel of the device's own that the node may touch; empty when it lies too far out.
QRect frameOf(const NodeImpl& node, const PaintContext& context)
{
    constexpr double kFarthest = 1e6;
    const double scale = context.options().viewScale;
    const double margin = node.markReach() * std::max(scale, 1.0) * context.pixelRatio() + kMargin;
    const QRectF reach = node.paintedRect(context.nodeToPixels(), context.view(), scale)
                             .adjusted(-margin, -margin, margin, margin);
    const bool isNear = std::abs(reach.left()) <= kFarthest && std::abs(reach.top()) <= kFarthest &&
                        reach.width() <= kFarthest && reach.height() <= kFarthest;
    if (!isNear)
        return {};
    const int step = stepOf(context.pixelRatio());
    const QPoint corner(static_cast<int>(std::floor(reach.left() / step)) * step,
                        static_cast<int>(std::floor(reach.top() / step)) * step);
    return QRect(corner, reach.toAlignedRect().bottomRight());
}

/// Null when memory is short.
QImage draw(NodeImpl& node, const PaintContext& context, const QRect& frame)
{
    QImage image(frame.size(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    const double ratio = context.pixelRatio();
    // Before anything is painted: cosmetic and aligned lines go by it.
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    const QTransform view =
        context.view() * QTransform::fromTranslate(-frame.x() / ratio, -frame.y() / ratio);
    const QRectF whole(QPointF(), QSizeF(frame.size()) / ratio);
    PaintOptions options = context.options();
    // All of it, whatever part is to be seen at first.
    options.exposed = Vetra::fromQt(view.inverted().mapRect(whole));
    PaintContext own(painter, view, options);
    own.setFillsStrokes(true);
    own.setPixels(PixelArea(image, {}));
    own.setOpacity(context.opacity());
    own.enterLike(context);
    node.paintWithEffects(own);
    own.flush();
    painter.end();
    image.setDevicePixelRatio(1); // it is drawn pixel by pixel
    SceneCounters::offscreenRepaints().increment();
    return image;
}

} // namespace

NodeCache::NodeCache() = default;
NodeCache::~NodeCache() = default;

bool NodeCache::paintCached(NodeImpl& node, PaintContext& context)
{
    auto* const scene = static_cast<ScenePrivate*>(node.sceneLink());
    return scene && scene->cache().paint(node, context, *scene);
}

bool NodeCache::paint(NodeImpl& node, PaintContext& context, const ScenePrivate& scene)
{
    const QRect frame = frameOf(node, context);
    if (!CacheBudget::admits(frame.size()))
        return false;
    Picture wanted{&node,
                   context.nodeToPixels() * QTransform::fromTranslate(-frame.x(), -frame.y()),
                   context.pixelRatio(),
                   context.opacity(),
                   context.options().quality,
                   context.options().smallestText,
                   QImage(),
                   nullptr};
    auto picture = find(node, wanted);
    if (picture == m_pictures.end()) {
        const auto edits = scene.editCounter();
        wanted.image = draw(node, context, frame);
        if (wanted.image.isNull())
            return false;
        // A painter may have edited its node or taken it out: the picture is good for this paint
        // only.
        if (scene.editCounter() != edits) {
            context.drawDeviceImage(frame.topLeft(), wanted.image);
            return true;
        }
        picture = keep(node, std::move(wanted));
    }
    context.drawDeviceImage(frame.topLeft(), picture->image);
    return true;
}

NodeCache::Pictures::iterator NodeCache::find(NodeImpl& node, const Picture& wanted)
{
    const auto found = m_byNode.find(&node);
    if (found == m_byNode.end())
        return m_pictures.end();
    for (const auto picture : found->second) {
        if (picture->isFor(wanted)) {
            picture->share->touch();
            return picture;
        }
    }
    return m_pictures.end();
}

NodeCache::Pictures::iterator NodeCache::keep(NodeImpl& node, Picture&& picture)
{
    m_pictures.push_front(std::move(picture));
    const auto kept = m_pictures.begin();
    auto& own = m_byNode[&node];
    own.push_front(kept);
    kept->share = std::make_unique<CacheBudget::Share>(CacheBudget::bytesOf(kept->image.size()),
                                                       [this, kept] { erase(kept); });
    const std::size_t most =
        node.cacheType() == CacheType::ItemCoordinateCache ? kPicturesOfItemCache : 1;
    while (own.size() > most)
        erase(own.back());
    return kept;
}

void NodeCache::erase(Pictures::iterator picture) noexcept
{
    const auto own = m_byNode.find(picture->node);
    own->second.remove(picture);
    if (own->second.empty())
        m_byNode.erase(own);
    m_pictures.erase(picture);
}

void NodeCache::noteChange(NodeImpl& node, ChangeLevel level) noexcept
{
    // Another place or another order leaves the pixels as they are.
    if (level != ChangeLevel::Placement && level != ChangeLevel::Stacking)
        drop(node);
}

void NodeCache::clear() noexcept
{
    m_byNode.clear();
    m_pictures.clear();
}

void NodeCache::drop(NodeImpl& node) noexcept
{
    if (m_byNode.empty())
        return;
    const auto own = m_byNode.find(&node);
    if (own == m_byNode.end())
        return;
    const auto pictures = own->second;
    for (const auto picture : pictures)
        erase(picture);
}

} // namespace Tova2
