#include "vetra/imagecompositor.h"

#include "boundedfile.h"
#include "compositornodes.h"
#include "imagecache.h"
#include "imagesource.h"
#include "vetra/imageerrors.h"
#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Vetra {

namespace {

bool isUsable(const ImageCompositor::Layer& layer)
{
    return layer.node && std::isfinite(layer.offset.x) && std::isfinite(layer.offset.y) &&
           std::isfinite(layer.opacity);
}

} // namespace

ImageCompositor::Node::~Node() = default;

Holder<Image> ImageCompositor::Node::image(const Size<int>& pixels) const
{
    if (isNull() || !Image::isAcceptableSize(pixels))
        return new Image;
    QImage image(toQt(pixels), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return new Image;
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        paint(painter, *this, {0, 0, double(pixels.width), double(pixels.height)});
    }
    return fromQt(image);
}

Holder<ImageCompositor::Node> ImageCompositor::fromImage(const Holder<Image>& image)
{
    return new ImageLeaf(image);
}

Holder<ImageCompositor::Node> ImageCompositor::fromFile(const std::string& path)
{
    return new FileLeaf(path);
}

Holder<ImageCompositor::Node> ImageCompositor::overlay(const std::vector<Layer>& layers)
{
    std::vector<Layer> usable;
    std::copy_if(layers.begin(), layers.end(), std::back_inserter(usable), isUsable);
    for (auto& layer : usable)
        layer.opacity = std::clamp(layer.opacity, 0.0, 1.0);
    const Holder<Node> node = new OverlayNode(std::move(usable));
    if (node->depth() > MaxDepth || node->leafCount() > MaxLeaves)
        raise(ImageError::TooComplex);
    return node;
}

struct ImageCompositor::Manager::Cache {
    ImageCache images{DefaultCacheLimit};
    ImagePolicy policy;
    unsigned generation = 0;
};

ImageCompositor::Manager::Manager() : m_cache(std::make_unique<Cache>()) {}

ImageCompositor::Manager::~Manager() = default;

ImageCompositor::Manager& ImageCompositor::Manager::instance()
{
    // Never destroyed: nodes in static objects may ask at any time.
    static auto* const manager = new Manager;
    return *manager;
}

void ImageCompositor::Manager::clearCache()
{
    m_cache->images.clear();
    ++m_cache->generation;
}

void ImageCompositor::Manager::setCacheLimit(std::size_t bytes)
{
    m_cache->images.setLimit(bytes);
}

std::size_t ImageCompositor::Manager::cacheLimit() const noexcept
{
    return m_cache->images.limit();
}

std::size_t ImageCompositor::Manager::cachedBytes() const noexcept
{
    return m_cache->images.bytes();
}

void ImageCompositor::Manager::setPolicy(const ImagePolicy& policy)
{
    m_cache->policy = policy;
    clearCache();
}

const ImagePolicy& ImageCompositor::Manager::policy() const noexcept
{
    return m_cache->policy;
}

Holder<Image> ImageCompositor::Manager::load(const std::string& path)
{
    const auto file = resolveImagePath(path, m_cache->policy);
    const auto stamp = FileStamp::of(file);
    if (const auto cached = m_cache->images.find(file, stamp))
        return cached;
    const auto image = loadImage(file, m_cache->policy);
    m_cache->images.insert(file, stamp, image);
    return image;
}

unsigned ImageCompositor::Manager::generation() const noexcept
{
    return m_cache->generation;
}

void paint(QPainter& painter, const ImageCompositor::Node& node, const GLRect<double>& target,
           const GLRect<double>& source)
{
    if (painter.isActive() && isPaintable(target) && isPaintable(source) && !node.isNull())
        node.doPaint(painter, target, source);
}

void paint(QPainter& painter, const ImageCompositor::Node& node, const GLRect<double>& target)
{
    const auto size = node.naturalSize();
    paint(painter, node, target, {0, 0, double(size.width), double(size.height)});
}

} // namespace Vetra
