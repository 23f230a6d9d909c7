#include "tova/nodes/picturenode.h"

#include "nodes/nodekind.h"
#include "nodes/picturenodeimpl.h"

namespace Tova2 {

PictureNode::PictureNode() : Node(FactoryIndex{factoryIndex<PictureNodeImpl>()}) {}

PictureNode::PictureNode(const Vetra::Picture& picture) : PictureNode()
{
    setPicture(picture);
}

PictureNode::PictureNode(PictureNodeImpl* impl) : Node(impl) {}

PictureNode::PictureNode(NodeImpl* impl) : Node(checkedKind<PictureNodeImpl>(impl)) {}

const Vetra::Picture* PictureNode::getPicture() const
{
    const Vetra::Picture& picture = getValidPictureNodeImpl()->picture();
    return picture.isEmpty() ? nullptr : &picture;
}

void PictureNode::setPicture(const Vetra::Picture& picture)
{
    getValidPictureNodeImpl()->setPicture(picture);
}

const char* PictureNode::staticGetFullyQualifiedKobjTypeName()
{
    return "Tova2.PictureNode";
}

PictureNodeImpl* PictureNode::getPictureNodeImpl() const noexcept
{
    return static_cast<PictureNodeImpl*>(getImpl());
}

PictureNodeImpl* PictureNode::getValidPictureNodeImpl() const
{
    return static_cast<PictureNodeImpl*>(getValidImpl());
}

} // namespace Tova2
