#pragma once

#include "layout/canvasspot.h"
#include "layout/flow.h"
#include "layout/panelmembers.h"

#include "tova/layout/autolayoutpanel.h"
#include "vemit/connection.h"
#include "vemit/listener.h"
#include "vetra/referenced.h"

#include <QRectF>

#include <optional>
#include <vector>

namespace Tova2 {

class DeferredError;

/// State and work of a panel, which listens here to all that makes it lay out again.
class AutoLayoutPanelPrivate final : public Vemit::Listener {
public:
    explicit AutoLayoutPanelPrivate(AutoLayoutPanel& panel);
    ~AutoLayoutPanelPrivate();

    // Settings
    template <class T>
    void change(T& setting, const T& value)
    {
        if (setting == value)
            return;
        setting = value;
        requestLayout();
    }
    FlowRules rules;
    const LodScale* scaleFunction = LodScale::instance();
    Vetra::GLRect<double> anchorClip;
    RoundedRectNode root;
    const PanelMembers& members() const { return m_members; }
    AutoLayoutPanel::PanelStyle style() const { return m_style; }
    void setStyle(AutoLayoutPanel::PanelStyle style);
    void setDrawStyle(const DrawStyle& style);
    void setOpacity(double opacity);
    Vetra::GLPoint<double> position() const { return m_position; }
    void setPosition(const Vetra::GLPoint<double>& position);
    CanvasAffinity affinity() const { return m_spot.affinity; }
    void setAffinity(CanvasAffinity affinity, const Vetra::GLPoint<double>& offset);

    // Members
    void insert(int index, const Vetra::StringID& name, const Node& node);
    Node remove(const Node& member);

    // Layout
    void requestLayout();
    void layout(bool isForced);
    void suspend() { ++m_suspendCount; }
    void resume();
    Vetra::GLRect<double> frame() const { return m_frame; }

    // Installation
    void installOnNode(const Node& parent, bool anchored, const Vetra::GLRect<double>& anchorClip);
    void installOnCanvas(GLCanvas& canvas);
    void installOnScene(Scene* scene);
    bool isInstalled() const;
    void uninstall();

private:
    enum class Installation { None, OnNode, OnCanvas, OnScene };

    /// A member with what the layout decides about it.
    struct Placed {
        Node node;
        Vetra::GLPoint<double> position;
        QRectF bounds; ///< in the root's coordinates
        bool isShown = true;
    };
    using Plan = std::vector<Placed>;
    /// Where the last layout has ended, and so where it goes on for what is appended.
    struct Tail {
        Flow flow;
        QRectF shown; ///< bounds of all members that are shown
    };

    Vetra::Holder<AutoLayoutPanel> keptAlive() const;
    void memberChanged(ChangeLevel level);
    /// Out of the scene and off the root.
    void take(Node member, DeferredError& error);
    void applyStyle();
    void layoutAppended();
    void layoutOnce(DeferredError& error);
    void layoutLast(DeferredError& error);
    double panelScale() const;
    Plan makePlan(const std::vector<Node>& members, Tail& tail) const;
    void carryOut(const Plan& plan, int index, DeferredError& error);
    void showMember(const Placed& placed, int index);
    void showFrame(const QRectF& members, DeferredError& error);
    std::optional<QRectF> anchorRect() const;
    void place();
    void viewChanged();
    void followView(GLCanvas& canvas);
    void followAnchor(const Node& parent);
    void settle(DeferredError& error);
    void forgetPlace();
    void leave(DeferredError& error);

    AutoLayoutPanel& m_panel;
    PanelMembers m_members;
    AutoLayoutPanel::PanelStyle m_style = AutoLayoutPanel::PanelStyle::BlackTranslucent;
    std::optional<DrawStyle> m_ownStyle; ///< in place of the panel style's stroke and fill
    Vetra::GLPoint<double> m_position;
    Vetra::GLRect<double> m_frame;
    double m_scale = 1;     ///< as of the last layout
    double m_viewScale = 1; ///< that it was made for
    CanvasSpot m_spot;
    std::vector<Vemit::Connection> m_followed; ///< of what it is installed on
    std::optional<Tail> m_tail; ///< none once anything but an appended member is news
    int m_suspendCount = 0;
    int m_quietChanges = 0; ///< heard of while `m_isQuiet`
    bool m_isPending = true;
    bool m_isLayingOut = false;
    bool m_mustGoOn = false; ///< asked for a layout during one
    bool m_isQuiet = false;  ///< moves members itself
    Installation m_installation = Installation::None;
    bool m_isAnchored = false;
};

} // namespace Tova2
