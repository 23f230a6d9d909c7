#include "tova/nodes/imagenode.h"

#include "nodes/imagenodeimpl.h"
#include "nodes/nodekind.h"

#include "vetra/qt.h"

namespace Tova2 {

ImageNode::ImageNode() : Node(FactoryIndex{factoryIndex<ImageNodeImpl>()}) {}

ImageNode::ImageNode(const std::string& path) : ImageNode()
{
    setSource(path);
}

ImageNode::ImageNode(const Source& source) : ImageNode()
{
    setSource(source);
}

ImageNode::ImageNode(ImageNodeImpl* impl) : Node(impl) {}

ImageNode::ImageNode(NodeImpl* impl) : Node(checkedKind<ImageNodeImpl>(impl)) {}

ImageNode::Source ImageNode::getSource() const
{
    return getValidImageNodeImpl()->source();
}

std::string ImageNode::getPath() const
{
    const Source source = getSource();
    return source ? source->path() : std::string();
}

void ImageNode::setSource(const std::string& path)
{
    auto* const impl = getValidImageNodeImpl();
    if (path.empty())
        impl->setSource({});
    else if (path != getPath())
        impl->setSource(Vetra::ImageCompositor::fromFile(path));
}

void ImageNode::setSource(const Source& source)
{
    getValidImageNodeImpl()->setSource(source);
}

bool ImageNode::isNull() const
{
    return getValidImageNodeImpl()->naturalSize().isEmpty();
}

Vetra::GLPoint<int> ImageNode::getImageNaturalSize() const
{
    const QSize size = getValidImageNodeImpl()->naturalSize();
    return {size.width(), size.height()};
}

Vetra::GLPoint<double> ImageNode::getSize() const
{
    const QSizeF size = getValidImageNodeImpl()->size();
    return {size.width(), size.height()};
}

void ImageNode::setSize(const Vetra::GLPoint<double>& size)
{
    getValidImageNodeImpl()->setSize({size.x, size.y});
}

void ImageNode::setSizeToImageNaturalSize()
{
    auto* const impl = getValidImageNodeImpl();
    if (!impl->naturalSize().isEmpty())
        impl->setSize(impl->naturalSize());
}

void ImageNode::setViewBox(const Vetra::GLRect<double>& box)
{
    if (box.isValid())
        getValidImageNodeImpl()->setViewBox(Vetra::toQt(box));
}

void ImageNode::removeViewBox()
{
    getValidImageNodeImpl()->setViewBox({});
}

const char* ImageNode::staticGetFullyQualifiedKobjTypeName()
{
    return "Tova2.ImageNode";
}

ImageNodeImpl* ImageNode::getImageNodeImpl() const noexcept
{
    return static_cast<ImageNodeImpl*>(getImpl());
}

ImageNodeImpl* ImageNode::getValidImageNodeImpl() const
{
    return static_cast<ImageNodeImpl*>(getValidImpl());
}

} // namespace Tova2
