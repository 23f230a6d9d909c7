#include "layout/autolayoutpanelprivate.h"

#include "layout/panelstyles.h"
#include "nodes/deferrederror.h"
#include "nodes/flagscope.h"
#include "nodes/nodekind.h"

#include "vetra/errorreporter.h"

namespace Tova2 {

AutoLayoutPanelPrivate::AutoLayoutPanelPrivate(AutoLayoutPanel& panel)
    : m_panel(panel), m_members(root, [this](ChangeLevel level) { memberChanged(level); })
{
    root.addTag(Vetra::StringID("layout"));
    root.setClipsChildren(true);
    applyStyle();
    implBehind(root)->changeEmitter().connect(this, [this](NodeImpl&, ChangeLevel level) {
        if (level == ChangeLevel::Children)
            memberChanged(level);
    });
}

AutoLayoutPanelPrivate::~AutoLayoutPanelPrivate()
{
    disconnectAll();
    const FlagScope quiet(m_isQuiet);
    DeferredError error;
    for (Node member : m_members.nodes())
        error.run([&] { member.setVisible(true); });
    leave(error);
    try {
        error.rethrow();
    } catch (...) {
        Vetra::reportError(std::current_exception(), "panel destruction");
    }
}

// A panel that nobody holds yet must not die of being held for a moment.
Vetra::Holder<AutoLayoutPanel> AutoLayoutPanelPrivate::keptAlive() const
{
    return m_panel.referenceCount() > 0 ? &m_panel : nullptr;
}

void AutoLayoutPanelPrivate::memberChanged(ChangeLevel level)
{
    if (level == ChangeLevel::Stacking && !m_isLayingOut)
        m_tail.reset(); // the next layout puts z-values right
    if (m_isQuiet)
        ++m_quietChanges;
    if (m_isQuiet || level == ChangeLevel::Appearance || level == ChangeLevel::Stacking)
        return;
    const auto keep = keptAlive();
    if (level == ChangeLevel::Children) {
        DeferredError error;
        m_members.reconcile(error);
        error.run([this] { requestLayout(); });
        error.rethrow();
    } else if (!m_isLayingOut) {
        requestLayout();
    }
}

void AutoLayoutPanelPrivate::applyStyle()
{
    DrawStyle style = drawStyleOf(m_style);
    if (m_ownStyle) {
        style.setStroke(m_ownStyle->stroke());
        style.setFill(m_ownStyle->fill());
    }
    root.setDrawStyle(style);
}

void AutoLayoutPanelPrivate::setStyle(AutoLayoutPanel::PanelStyle style)
{
    if (style == m_style && !m_ownStyle)
        return;
    const auto keep = keptAlive();
    m_style = style;
    m_ownStyle.reset();
    applyStyle();
    requestLayout();
}

void AutoLayoutPanelPrivate::setDrawStyle(const DrawStyle& style)
{
    if (style == m_ownStyle)
        return;
    const auto keep = keptAlive();
    m_ownStyle = style;
    applyStyle();
    requestLayout();
}

void AutoLayoutPanelPrivate::setOpacity(double opacity)
{
    const auto keep = keptAlive();
    const double before = root.getOpacity();
    root.setOpacity(opacity);
    if (root.getOpacity() != before)
        requestLayout();
}

void AutoLayoutPanelPrivate::setPosition(const Vetra::GLPoint<double>& position)
{
    if (position == m_position)
        return;
    const auto keep = keptAlive();
    m_position = position;
    place();
    if (m_installation == Installation::OnNode)
        requestLayout();
}

void AutoLayoutPanelPrivate::setAffinity(CanvasAffinity affinity,
                                         const Vetra::GLPoint<double>& offset)
{
    if (affinity == m_spot.affinity && offset == m_spot.offset)
        return;
    const auto keep = keptAlive();
    m_spot.affinity = affinity;
    m_spot.offset = offset;
    place();
    requestLayout();
}

void AutoLayoutPanelPrivate::insert(int index, const Vetra::StringID& name, const Node& node)
{
    const auto keep = keptAlive();
    const Node namesake = m_members.named(name);
    const bool isAppended =
        index >= m_members.count() && !namesake.isValid() && node.getParent() != root;
    Node member = node;
    DeferredError error;
    {
        const FlagScope quiet(m_isQuiet);
        m_quietChanges = 0;
        error.run([&] { member.setParent(root); });
    }
    if (member.getParent() != root)
        return error.rethrow();
    if (namesake.isValid() && namesake != member)
        take(namesake, error);
    m_members.place(member, index);
    m_members.setName(member, name);
    // That it has come is the only news, if no tracker has made others.
    error.run([&] { isAppended&& m_quietChanges == 1 ? layoutAppended() : requestLayout(); });
    error.rethrow();
}

Node AutoLayoutPanelPrivate::remove(const Node& member)
{
    if (!member.isValid() || m_members.indexOf(member) < 0)
        return {};
    const auto keep = keptAlive();
    Node removed = member; // the list's own may be what was given
    DeferredError error;
    take(removed, error);
    error.run([this] { requestLayout(); });
    error.rethrow();
    return removed;
}

void AutoLayoutPanelPrivate::take(Node member, DeferredError& error)
{
    const FlagScope quiet(m_isQuiet);
    error.run([&] { member.remove(); });
    if (member.getParent() == root)
        error.run([&] { member.unparent(); });
    m_members.reconcile(error);
}

} // namespace Tova2
