#pragma once

#include "tova/nodes/node.h"
#include "vetra/picture.h"

namespace Tova2 {

class PictureNodeImpl;

/// A recorded drawing, replayed in the element's coordinates with the looks it was recorded with:
/// neither stroke nor fill of the draw style shows. Its bounds are the picture's.
class TOVA_EXPORT PictureNode : public Node {
public:
    PictureNode();
    explicit PictureNode(const Vetra::Picture& picture);
    explicit PictureNode(PictureNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit PictureNode(NodeImpl* impl);

    /// Null when there is none or it is empty. The element's own: good until the next `setPicture`.
    const Vetra::Picture* getPicture() const;
    void setPicture(const Vetra::Picture& picture);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    PictureNodeImpl* getPictureNodeImpl() const noexcept;
    PictureNodeImpl* getValidPictureNodeImpl() const;
};

} // namespace Tova2
