#include "compositornodes.h"

#include "vetra/imageerrors.h"
#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <new>

namespace Vetra {

namespace {

GLRect<double> boxOf(const ImageCompositor::Layer& layer)
{
    const auto size = layer.node->naturalSize();
    return {layer.offset.x, layer.offset.y, double(size.width), double(size.height)};
}

GLRect<double> roundedOut(const GLRect<double>& r)
{
    const double left = std::floor(r.x), top = std::floor(r.y);
    return {left, top, std::ceil(r.right()) - left, std::ceil(r.bottom()) - top};
}

} // namespace

void ImageLeaf::load() const
{
    if (isNull())
        raise(ImageError::NullImage);
}

Size<int> ImageLeaf::naturalSize() const
{
    return m_image ? m_image->size() : Size<int>{};
}

void ImageLeaf::doPaint(QPainter& painter, const GLRect<double>& target,
                        const GLRect<double>& source) const
{
    if (m_image)
        paint(painter, *m_image, target, source);
}

void FileLeaf::load() const
{
    tryLoad();
    if (m_error)
        throw *m_error;
}

Size<int> FileLeaf::naturalSize() const
{
    const auto& image = tryLoad();
    return image ? image->size() : Size<int>{};
}

void FileLeaf::doPaint(QPainter& painter, const GLRect<double>& target,
                       const GLRect<double>& source) const
{
    if (const auto image = tryLoad())
        paint(painter, *image, target, source);
}

const Holder<Image>& FileLeaf::tryLoad() const
{
    auto& manager = ImageCompositor::Manager::instance();
    if (m_generation == manager.generation())
        return m_image;
    m_image.reset();
    m_error.reset();
    try {
        m_image = manager.load(m_path);
    } catch (const Error& error) {
        m_error = error;
    } catch (const std::bad_alloc&) {
        m_error = Error("vetra:images", "TooLarge", m_path);
    }
    m_generation = manager.generation();
    return m_image;
}

OverlayNode::OverlayNode(std::vector<ImageCompositor::Layer> layers) : m_layers(std::move(layers))
{
    for (const auto& layer : m_layers) {
        m_depth = std::max(m_depth, layer.node->depth() + 1);
        // Each part is within the limit already, so a sum cut off there cannot overflow.
        m_leafCount =
            std::min(m_leafCount + layer.node->leafCount(), ImageCompositor::MaxLeaves + 1);
    }
}

void OverlayNode::load() const
{
    for (const auto& layer : m_layers)
        layer.node->load();
    if (isNull())
        raise(ImageError::Empty);
}

const GLRect<double>& OverlayNode::box() const
{
    const auto generation = ImageCompositor::Manager::instance().generation();
    if (m_generation == generation)
        return m_box;
    GLRect<double> box;
    for (const auto& layer : m_layers) {
        const auto part = boxOf(layer);
        if (part.isValid())
            box = box.isValid() ? box.united(part) : part;
    }
    m_box = roundedOut(box);
    m_generation = generation;
    return m_box;
}

Size<int> OverlayNode::naturalSize() const
{
    const auto& whole = box();
    if (!(whole.width <= Image::MaxSide) || !(whole.height <= Image::MaxSide))
        return {};
    const Size<int> size{static_cast<int>(whole.width), static_cast<int>(whole.height)};
    return Image::isAcceptableSize(size) ? size : Size<int>{};
}

void OverlayNode::doPaint(QPainter& painter, const GLRect<double>& target,
                          const GLRect<double>& source) const
{
    const auto origin = box().topLeft();
    painter.save();
    painter.setClipRect(toQt(target), Qt::IntersectClip);
    painter.translate(target.x, target.y);
    painter.scale(target.width / source.width, target.height / source.height);
    painter.translate(-source.x - origin.x, -source.y - origin.y);
    const double opacity = painter.opacity();
    for (const auto& layer : m_layers) {
        painter.setOpacity(opacity * layer.opacity);
        paint(painter, *layer.node, boxOf(layer));
    }
    painter.restore();
}

} // namespace Vetra
