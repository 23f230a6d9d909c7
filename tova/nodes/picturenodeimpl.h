#pragma once

#include "nodes/nodeimpl.h"
#include "vetra/picture.h"

namespace Tova2 {

class PictureNodeImpl final : public NodeImpl {
public:
    const char* typeName() const override { return "Tova2.PictureNode"; }

    const Vetra::Picture& picture() const { return m_picture; }
    void setPicture(const Vetra::Picture& picture);

    QRectF geometryRect() const override { return m_rect; }
    /// No stroke of the draw style shows.
    double strokeReach() const override { return 0; }
    void paintNode(PaintContext& context) const override;
    bool hidesItsSilhouette() const override { return false; }
    bool isSilhouetteOfInk() const override { return false; }

private:
    Vetra::Picture m_picture;
    QRectF m_rect;
};

} // namespace Tova2
