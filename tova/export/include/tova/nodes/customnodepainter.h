#pragma once

#include "tova/nodes/customnode.h"
#include "tova/nodes/paintoptions.h"
#include "tova/typename.h"

class QPainter;

namespace Tova2 {

/// Draws and measures a `CustomNode`. Everything is in the node's coordinates; `scale` is the view
/// scale, in device pixels a scene unit, and 1 where a question is not about any view.
///
/// Rectangles and regions that are not finite count as empty. Bounds are asked for in the middle of
/// other work, so an exception from `getBoundingRect` makes the node empty instead of passing on;
/// one from any other operation passes to whoever caused the call, with the QPainter restored. A
/// painter may edit and ask anything from any operation. Asked for bounds, it is answered from what
/// the scene knew before, and finds its own node empty; what it edits then is seen by the next
/// query.
class TOVA_EXPORT CustomNodePainter : public Vetra::Referenced {
public:
    // The order of the virtual operations is part of the interface.
    virtual Vetra::GLRect<double> getBoundingRect(double scale) const = 0;
    /// The bounding rectangle, unless overridden.
    virtual Vetra::GLRect<double> getOutlineRect(double scale) const;
    /// What is hit; the bounding rectangle, unless overridden.
    virtual Bounds getOutlineStroked(double scale) const;
    /// `target` is the bounding rectangle at `scale`. The painter comes with the node's pen, brush
    /// and antialiasing set, and may be left in any state that one `restore` takes back.
    virtual void paint(QPainter* painter, double scale, const Vetra::GLRect<double>& target,
                       const PaintOptions& options) = 0;
    /// The area that effects and masks are made from: opaque where the node is. Fills the stroked
    /// outline, unless overridden.
    virtual void paintMask(QPainter* painter, double scale, const Vetra::GLRect<double>& target,
                           const PaintOptions& options);

    /// The node that took this painter last, for as long as it has it; else an empty handle.
    CustomNode getNode() const;
    /// Forwards to the node, if there is one.
    void boundsChanging();

protected:
    ~CustomNodePainter() override;

private:
    friend class CustomNodeImpl;

    CustomNodeImpl* m_node = nullptr;

    TOVA_BASE_TYPE("Tova2.CustomNodePainter");
};

} // namespace Tova2
