#include "layout/autolayoutpanelprivate.h"
#include "layout/memberbox.h"
#include "nodes/deferrederror.h"
#include "nodes/flagscope.h"
#include "nodes/nodekind.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <cmath>

namespace Tova2 {

namespace {

// A host that answers each layout with another setting is let go on for so long.
constexpr int kMostRounds = 8;

QRectF grown(const QRectF& rect, double by)
{
    return {rect.x() - by, rect.y() - by, rect.width() + 2 * by, rect.height() + 2 * by};
}

bool liesWithin(const QRectF& rect, const QRectF& area)
{
    return Vetra::fromQt(area).contains(Vetra::fromQt(rect));
}

} // namespace

void AutoLayoutPanelPrivate::requestLayout()
{
    m_isPending = true;
    layout(false);
}

void AutoLayoutPanelPrivate::resume()
{
    if (m_suspendCount > 0 && --m_suspendCount == 0 && m_isPending)
        layout(false);
}

void AutoLayoutPanelPrivate::layout(bool isForced)
{
    if (!isForced && m_suspendCount > 0)
        return;
    m_mustGoOn = true;
    if (m_isLayingOut)
        return;
    const auto keep = keptAlive();
    const FlagScope layingOut(m_isLayingOut);
    DeferredError error;
    for (int round = 0; round < kMostRounds && m_mustGoOn; ++round)
        layoutOnce(error);
    error.rethrow();
}

void AutoLayoutPanelPrivate::layoutOnce(DeferredError& error)
{
    m_isPending = m_mustGoOn = false;
    m_members.reconcile(error);
    Plan plan;
    error.run([this] {
        m_viewScale = m_spot.viewScale();
        m_scale = panelScale();
    });
    error.run([this] { root.setTransform(Vetra::Transform::fromScale(m_scale, m_scale)); });
    error.run([&] { plan = makePlan(); });
    carryOut(plan, error);
    showFrame(plan, error);
    error.run([this] { place(); });
}

double AutoLayoutPanelPrivate::panelScale() const
{
    const double scale = scaleFunction->scale(m_viewScale);
    return std::isfinite(scale) && scale > 0 ? scale : 1;
}

// Decided first and carried out after, so that a member which stays as it is hears of nothing.
AutoLayoutPanelPrivate::Plan AutoLayoutPanelPrivate::makePlan() const
{
    Flow flow(rules, m_scale);
    const auto anchor = anchorRect();
    const QTransform toParent = implBehind(root)->localTransform();
    Plan plan;
    for (const Node& member : m_members.nodes()) {
        const MemberBox box = boxOf(*implBehind(member));
        Placed placed{member, member.getPosition(), {}, false};
        if (const auto corner = flow.place(box.bounds.size())) {
            placed.position = Vetra::fromQt(*corner - box.corner);
            placed.bounds = box.bounds.translated(Vetra::toQt(placed.position));
            placed.isShown = !anchor || liesWithin(toParent.mapRect(placed.bounds), *anchor);
        }
        plan.push_back(placed);
    }
    return plan;
}

std::optional<QRectF> AutoLayoutPanelPrivate::anchorRect() const
{
    const Node parent = root.getParent();
    if (!m_isAnchored || !parent.isValid())
        return {};
    const auto geometry = parent.getGeometryRect();
    return Vetra::toQt(anchorClip.isValid() ? geometry.intersected(anchorClip) : geometry);
}

void AutoLayoutPanelPrivate::carryOut(const Plan& plan, DeferredError& error)
{
    int index = 0;
    for (const Placed& placed : plan) {
        // A tracker may have taken it elsewhere meanwhile.
        if (placed.node.getParent() == root)
            error.run([&] { showMember(placed, index); });
        ++index;
    }
}

void AutoLayoutPanelPrivate::showMember(const Placed& placed, int index)
{
    Node node = placed.node;
    m_members.setCut(node, index, !placed.isShown);
    DeferredError error;
    error.run([&] { node.setZValue(index); });
    error.run([&] { node.setPosition(placed.position); });
    error.run([&] { node.setVisible(placed.isShown); });
    error.rethrow();
}

void AutoLayoutPanelPrivate::showFrame(const Plan& plan, DeferredError& error)
{
    QRectF members;
    for (const Placed& placed : plan) {
        if (placed.isShown)
            members |= placed.bounds;
    }
    const QRectF frame = grown(members, rules.padding);
    if (isFinite(frame))
        m_frame = Vetra::fromQt(frame);
    error.run([&] { root.setVisible(members.isValid()); });
    error.run([&] { root.setRect(m_frame); });
    error.run([&] { root.setRadius(rules.padding); });
}

void AutoLayoutPanelPrivate::place()
{
    root.setPosition(m_spot.rootPosition(m_frame, m_scale, m_position));
}

} // namespace Tova2
