#pragma once

#include "nodes/nodeimpl.h"
#include "vetra/imagecompositor.h"

#include <QRectF>
#include <QSize>

namespace Tova2 {

class ImageNodeImpl final : public NodeImpl {
public:
    using Source = Vetra::Holder<Vetra::ImageCompositor::Node>;

    const char* typeName() const override { return "Tova2.ImageNode"; }
    void inspect(Inspection& out) const override;

    const Source& source() const { return m_source; }
    void setSource(const Source& source);
    QSize naturalSize() const; ///< (0, 0) when null
    QSizeF size() const;
    void setSize(const QSizeF& size);
    /// An empty box removes it.
    void setViewBox(const QRectF& box);

    QRectF geometryRect() const override { return {QPointF(), size()}; }
    /// No stroke of the draw style shows.
    double strokeReach() const override { return 0; }
    void paintNode(PaintContext& context) const override;
    bool hidesItsSilhouette() const override { return false; }
    bool isSilhouetteOfInk() const override { return false; }

private:
    Source m_source;
    // Invalid: not set, or not known yet. The second is kept, so that bounds do not change silently
    // when a file is read anew.
    QSizeF m_size;
    mutable QSizeF m_defaultSize;
    QRectF m_viewBox; ///< empty when there is none
};

} // namespace Tova2
