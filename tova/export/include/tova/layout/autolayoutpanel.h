#pragma once

#include "tova/layout/canvasaffinity.h"
#include "tova/nodes/roundedrectnode.h"
#include "tova/nodes/style/drawstyle.h"
#include "tova/nodes/style/lodscale.h"
#include "tova/nodes/textalignment.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/referenced.h"
#include "vetra/size.h"
#include "vetra/stringid.h"

#include <cstdint>
#include <memory>

namespace Tova2 {

class AutoLayoutPanelPrivate;
class GLCanvas;
class Scene;

/// Arranges nodes in rows on a rounded background: each member beside the one before it, and a new
/// row where the next would pass the panel's width. Kept by whoever made it, by reference count; it
/// leaves what it is installed on when it dies. GUI thread only.
///
/// Lengths are in the panel's own units, which its scale function relates to the scene's. Each
/// setter lays out at once, unless nothing changes or layout is suspended; so does every change of
/// a member's bounds, place or visibility, so that a member which is moved or hidden from outside
/// comes back. A member's box is its bounding rectangle in the panel, or for a node without a
/// geometry that of what it contains; the geometry's corner, not the origin, is put where the
/// layout says. Values that are not finite are ignored.
class TOVA_EXPORT AutoLayoutPanel : public Vetra::Referenced {
public:
    // The enumerators' values are fixed and their names are the scripting keywords.
    enum class ExpandMode : std::uint32_t { None, Horizontal, Vertical };
    enum class PanelStyle : std::uint32_t {
        NoBackground,
        BlackTranslucent,
        RedTranslucent,
        YellowTranslucent,
        RoseTranslucent,
        RedSolidGradient
    };

    /// Empty, of style BlackTranslucent and not installed.
    AutoLayoutPanel();

    // Members, in the order of the layout. A node that hangs itself under the root becomes the last
    // one; one that is taken elsewhere is a member no longer.

    /// At the end. Throws what `Node::setParent` throws; nothing has changed then.
    void addNode(const Node& node) { addNodeAt(count(), node); }
    void addNode(const Vetra::StringID& name, const Node& node) { addNodeAt(count(), name, node); }
    /// The node gets that index, or the nearest one that there is; a member moves. The member that
    /// had the name leaves; an empty name is none.
    void addNodeAt(int index, const Node& node) { addNodeAt(index, {}, node); }
    void addNodeAt(int index, const Vetra::StringID& name, const Node& node);
    /// Answers the node, which is now in no scene; an empty handle where there was no such member.
    Node removeNode(const Node& node);
    Node removeNode(const Vetra::StringID& name);
    Node removeNodeAt(int index);
    /// An empty handle where there is none, as in the next.
    Node getNode(const Vetra::StringID& name) const;
    Node getNodeAt(int index) const;
    int count() const;
    bool empty() const { return count() == 0; }

    // Layout

    ExpandMode getExpandMode() const;
    void setExpandMode(ExpandMode mode);
    /// Which way rows grow: from the panel's origin to the right, or to the left. In the middle,
    /// there is one row.
    HorizontalAlignment getHAlign() const;
    void setHAlign(HorizontalAlignment alignment);
    /// Which way rows follow each other: at the top upwards from the panel's origin, else
    /// downwards.
    VerticalAlignment getVAlign() const;
    void setVAlign(VerticalAlignment alignment);
    /// Between members, and around all of them. It is the background's corner radius as well, but a
    /// padding of 0 leaves the radius as it was. 1 in a new panel.
    double getPadding() const;
    void setPadding(double padding);
    /// In scene units. Members below the height are hidden. A width up to 1 means: one member a
    /// row, or rows of 1000 panel units when expanding horizontally.
    Vetra::Size<double> getSize() const;
    void setSize(const Vetra::Size<double>& size);
    /// Gives the panel's scale at the scale of the canvas that it is installed on, and at 1
    /// elsewhere. Not owned; null stands for `LodScale::instance()`.
    void setNonLinearScaleFunction(const LodScale* function);
    /// Where an anchored panel shows members, in the coordinates of the node that it is installed
    /// on; one that is not valid does not limit.
    Vetra::GLRect<double> getAnchorClippingRect() const;
    void setAnchorClippingRect(const Vetra::GLRect<double>& rect);

    /// Each call is to be met by one of `resumeLayout`, the last of which lays out if need be.
    void suspendLayout();
    /// Nothing when layout is not suspended.
    void resumeLayout();
    /// Also while layout is suspended.
    void forceLayout();
    /// The background as of the last layout, in the root's coordinates.
    Vetra::GLRect<double> getBoundingRectangle() const;
    /// The background, and the parent of all members. Hidden while there is nothing to show.
    RoundedRectNode getRootNode() const;

    // Look

    double getOpacity() const;
    /// Clamped to [0, 1]. Members fade, too.
    void setOpacity(double opacity);
    PanelStyle getPanelStyle() const;
    void setPanelStyle(PanelStyle style);
    /// Stroke and fill in place of those of the panel style, until that is set again.
    void setPanelDrawStyle(const DrawStyle& style);

    // Place

    /// Of the panel's origin, in the coordinates of what it is installed on. On a canvas those are
    /// of the view, and an affinity goes before.
    Vetra::GLPoint<double> getPosition() const;
    void setPosition(const Vetra::GLPoint<double>& position);
    /// On a canvas the background keeps 4 view units from the edges there, or from the scroll bar
    /// that lies at one, whatever the view does. It is then moved by `offset`, in view units.
    void setCanvasAffinity(CanvasAffinity affinity, const Vetra::GLPoint<double>& offset = {});
    CanvasAffinity getCanvasAffinity() const;
    /// An anchored panel shows only members that lie wholly inside the node's geometry. Throws what
    /// `Node::setParent` throws; nothing has changed then.
    void installOnNode(const Node& parent, bool anchored,
                       const Vetra::GLRect<double>& anchorClip = {});
    /// Over the canvas's scene, in its overlay. The panel does not keep the canvas alive.
    void installOnCanvas(GLCanvas& canvas);
    /// As nodes of the scene, which no view moves. Null only uninstalls.
    void installOnSceneForStaticRender(Scene* scene);
    /// False again when what it was installed on has gone.
    bool isInstalled() const;
    void uninstall();

    AutoLayoutPanelPrivate* d_func() const noexcept { return d.get(); }

protected:
    ~AutoLayoutPanel() override;

private:
    const std::unique_ptr<AutoLayoutPanelPrivate> d;

    TOVA_PLAIN_TYPE("Tova2.AutoLayoutPanel");
};

} // namespace Tova2
