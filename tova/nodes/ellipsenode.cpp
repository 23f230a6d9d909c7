#include "tova/nodes/ellipsenode.h"

#include "nodes/ellipsenodeimpl.h"
#include "nodes/nodekind.h"

#include "vetra/qt.h"

namespace Tova2 {

EllipseNode::EllipseNode() : Node(FactoryIndex{factoryIndex<EllipseNodeImpl>()}) {}

EllipseNode::EllipseNode(const Ellipse& ellipse) : EllipseNode()
{
    setEllipse(ellipse);
}

EllipseNode::EllipseNode(EllipseNodeImpl* impl) : Node(impl) {}

EllipseNode::EllipseNode(NodeImpl* impl) : Node(checkedKind<EllipseNodeImpl>(impl)) {}

Ellipse EllipseNode::getEllipse() const
{
    return Ellipse(Vetra::fromQt(getValidEllipseImpl()->rect()));
}

void EllipseNode::setEllipse(const Ellipse& ellipse)
{
    getValidEllipseImpl()->setRect(Vetra::toQt(ellipse.rect()));
}

Vetra::GLPoint<double> EllipseNode::getCenter() const
{
    return getEllipse().rect().center();
}

void EllipseNode::setCenter(const Vetra::GLPoint<double>& center)
{
    getValidEllipseImpl()->setCenter(Vetra::toQt(center));
}

Vetra::Size<double> EllipseNode::getSize() const
{
    return Vetra::fromQt(getValidEllipseImpl()->rect().size());
}

void EllipseNode::setSize(const Vetra::Size<double>& size)
{
    getValidEllipseImpl()->setSize(Vetra::toQt(size));
}

double EllipseNode::getWidth() const
{
    return getValidEllipseImpl()->rect().width();
}

void EllipseNode::setWidth(double width)
{
    getValidEllipseImpl()->setWidth(width);
}

double EllipseNode::getHeight() const
{
    return getValidEllipseImpl()->rect().height();
}

void EllipseNode::setHeight(double height)
{
    getValidEllipseImpl()->setHeight(height);
}

double EllipseNode::getScaledWidth(double viewScale) const
{
    return getValidEllipseImpl()->geometryRectAt(viewScale).width();
}

double EllipseNode::getScaledHeight(double viewScale) const
{
    return getValidEllipseImpl()->geometryRectAt(viewScale).height();
}

void EllipseNode::setLodScale(const LodScale* scale)
{
    getValidEllipseImpl()->setLodScale(scale);
}

void EllipseNode::setWidthToPixelAlignCenter(double width)
{
    getValidEllipseImpl()->setWidthToPixelAlignCenter(width);
}

const char* EllipseNode::staticGetFullyQualifiedKobjTypeName()
{
    return EllipseNodeImpl::kTypeName;
}

EllipseNodeImpl* EllipseNode::getEllipseImpl() const noexcept
{
    return static_cast<EllipseNodeImpl*>(getImpl());
}

EllipseNodeImpl* EllipseNode::getValidEllipseImpl() const
{
    return static_cast<EllipseNodeImpl*>(getValidImpl());
}

} // namespace Tova2
