#pragma once

#include "tova/nodes/node.h"
#include "vetra/imagecompositor.h"
#include "vetra/referenced.h"

#include <string>

namespace Tova2 {

class ImageNodeImpl;

/// An image, from its element's origin to the right and down, smoothly scaled to a size of its own;
/// a vector drawing is drawn anew at every zoom. Neither stroke nor fill of the draw style shows.
///
/// What files may be read, and up to which size, is a matter of `Vetra::ImageCompositor::Manager`.
/// A file is read on first need. One that cannot be shown makes the node null: nothing is drawn,
/// nothing thrown; `getSource()->load()` throws the reason.
class TOVA_EXPORT ImageNode : public Node {
public:
    using Source = Vetra::Holder<Vetra::ImageCompositor::Node>;

    ImageNode();
    explicit ImageNode(const std::string& path);
    explicit ImageNode(const Source& source);
    explicit ImageNode(ImageNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit ImageNode(NodeImpl* impl);

    /// An empty holder when there is none.
    Source getSource() const;
    /// Empty when the source is none made from a file.
    std::string getPath() const;
    /// An empty path takes the source away.
    void setSource(const std::string& path);
    void setSource(const Source& source);
    /// No source, or one that cannot be shown.
    bool isNull() const;
    /// In pixels of the image; (0, 0) while the node is null.
    Vetra::GLPoint<int> getImageNaturalSize() const;

    /// In local units. Until a size is set it is the natural size, a unit a pixel, as found when
    /// first asked for after the source was set.
    Vetra::GLPoint<double> getSize() const;
    /// A negative extent is ignored; without extent nothing is drawn.
    void setSize(const Vetra::GLPoint<double>& size);
    void setSize(double width, double height) { setSize({width, height}); }
    /// Nothing while the node is null.
    void setSizeToImageNaturalSize();

    /// Shows only this part of the image, in its pixels, in all of the node; what is beyond the
    /// image is transparent. Ignored when it encloses no area.
    void setViewBox(const Vetra::GLRect<double>& box);
    void removeViewBox();

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    ImageNodeImpl* getImageNodeImpl() const noexcept;
    ImageNodeImpl* getValidImageNodeImpl() const;
};

} // namespace Tova2
