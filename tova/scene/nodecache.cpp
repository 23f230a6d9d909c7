#include "scene/nodecache.h"

#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "scene/sceneprivate.h"

#include "host/diagnosticscounter.h"
#include "tova/nodes/geometry/limits.h"

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
    QImage image;

    bool isFor(const Picture& other) const
    {
        return placement == other.placement && pixelRatio == other.pixelRatio &&
               opacity == other.opacity && quality == other.quality;
    }
};

namespace {

// Item caches serve several canvases at several zooms.
constexpr std::size_t kPicturesOfItemCache = 4;
constexpr int kMargin = 2; // pixels, for antialiasing

Host::DiagnosticsCounter& repaints()
{
    static auto& counter = Host::DiagnosticsCounter::counter("Scene:Node offscreen repaint count");
    return counter;
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
    const QTransform toDevice = context.nodeToPixels();
    const double scale = context.options().viewScale;
    const double marks = node.markReach() * std::max(scale, 1.0) * context.pixelRatio() + kMargin;
    const QRectF reach =
        toDevice.mapRect(node.strokedRectAt(scale)).adjusted(-marks, -marks, marks, marks);
    const double bytes = std::ceil(reach.width() + 1) * std::ceil(reach.height() + 1) * 4;
    if (!(bytes <= static_cast<double>(Limits::nodeCacheBytes)) || std::abs(reach.left()) > 1e6 ||
        std::abs(reach.top()) > 1e6)
        return false;
    const QPoint corner(static_cast<int>(std::floor(reach.left())),
                        static_cast<int>(std::floor(reach.top())));
    const QTransform placement = toDevice * QTransform::fromTranslate(-corner.x(), -corner.y());
    Picture wanted{
        &node, placement, context.pixelRatio(), context.opacity(), context.options().quality, {}};
    auto picture = find(node, wanted);
    if (picture == m_pictures.end()) {
        const QSize size(static_cast<int>(std::ceil(reach.width())) + 1,
                         static_cast<int>(std::ceil(reach.height())) + 1);
        wanted.image = QImage(size, QImage::Format_ARGB32_Premultiplied);
        if (wanted.image.isNull())
            return false;
        wanted.image.fill(Qt::transparent);
        QPainter painter(&wanted.image);
        painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
        const QTransform view = context.view() *
                                QTransform::fromScale(context.pixelRatio(), context.pixelRatio()) *
                                QTransform::fromTranslate(-corner.x(), -corner.y());
        PaintContext own(painter, view, context.options());
        own.setFillsStrokes(true);
        own.setOpacity(context.opacity());
        own.enterLike(context);
        const auto edits = scene.editCounter();
        node.paintNode(own);
        painter.end();
        wanted.image.setDevicePixelRatio(context.pixelRatio());
        repaints().increment();
        // A painter may have edited its node or taken it out: the picture is good for this paint
        // only.
        if (scene.editCounter() != edits) {
            context.drawDeviceImage(corner, wanted.image);
            return true;
        }
        picture = keep(node, std::move(wanted));
    }
    context.drawDeviceImage(corner, picture->image);
    return true;
}

NodeCache::Pictures::iterator NodeCache::find(NodeImpl& node, const Picture& wanted)
{
    const auto found = m_byNode.find(&node);
    if (found == m_byNode.end())
        return m_pictures.end();
    for (const auto picture : found->second) {
        if (picture->isFor(wanted)) {
            m_pictures.splice(m_pictures.begin(), m_pictures, picture);
            return picture;
        }
    }
    return m_pictures.end();
}

NodeCache::Pictures::iterator NodeCache::keep(NodeImpl& node, Picture&& picture)
{
    m_bytes += static_cast<std::size_t>(picture.image.sizeInBytes());
    m_pictures.push_front(std::move(picture));
    auto& own = m_byNode[&node];
    own.push_front(m_pictures.begin());
    const std::size_t most =
        node.cacheType() == CacheType::ItemCoordinateCache ? kPicturesOfItemCache : 1;
    while (own.size() > most)
        erase(own.back());
    while (m_bytes > Limits::allCachesBytes && m_pictures.size() > 1)
        erase(std::prev(m_pictures.end()));
    return m_pictures.begin();
}

void NodeCache::erase(Pictures::iterator picture) noexcept
{
    m_bytes -= static_cast<std::size_t>(picture->image.sizeInBytes());
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
