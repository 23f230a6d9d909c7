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
    m_tail.reset();
    m_isPending = true;
    layout(false);
}

// Costs as much as the one member, so that panels can be filled one by one.
void AutoLayoutPanelPrivate::layoutAppended()
{
    if (m_suspendCount > 0 || m_isLayingOut)
        m_tail.reset(); // it is not the only one by the time
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
    if (m_tail && !isForced) {
        m_isPending = m_mustGoOn = false;
        layoutLast(error);
    }
    for (int round = 0; round < kMostRounds && m_mustGoOn; ++round)
        layoutOnce(error);
    error.rethrow();
}

// As `layoutOnce`, which it leaves the work to where the others may have to move, too.
void AutoLayoutPanelPrivate::layoutLast(DeferredError& error)
{
    Tail tail = *m_tail;
    m_tail.reset();
    const int index = m_members.count() - 1;
    Plan plan;
    error.run([&] {
        const double scale = m_scale;
        m_viewScale = m_spot.viewScale();
        m_scale = panelScale();
        if (m_scale == scale)
            plan = makePlan({m_members.at(index)}, tail);
    });
    if (plan.empty()) {
        m_mustGoOn = true;
        return;
    }
    m_members.followLast();
    error.run([this] { root.setTransform(Vetra::Transform::fromScale(m_scale, m_scale)); });
    carryOut(plan, index, error);
    showFrame(tail.shown, error);
    error.run([this] { place(); });
    if (!m_mustGoOn)
        m_tail.emplace(tail);
}

void AutoLayoutPanelPrivate::layoutOnce(DeferredError& error)
{
    m_isPending = m_mustGoOn = false;
    m_tail.reset();
    m_members.reconcile(error);
    Plan plan;
    std::optional<Tail> tail;
    error.run([this] {
        m_viewScale = m_spot.viewScale();
        m_scale = panelScale();
    });
    error.run([this] { root.setTransform(Vetra::Transform::fromScale(m_scale, m_scale)); });
    tail.emplace(Tail{Flow(rules, m_scale), {}});
    error.run([&] { plan = makePlan(m_members.nodes(), *tail); });
    carryOut(plan, 0, error);
    showFrame(tail->shown, error);
    error.run([this] { place(); });
    // What it is anchored in can change unseen.
    if (!m_isAnchored && !m_mustGoOn && static_cast<int>(plan.size()) == m_members.count())
        m_tail.emplace(*tail);
}

double AutoLayoutPanelPrivate::panelScale() const
{
    const double scale = scaleFunction->scale(m_viewScale);
    return std::isfinite(scale) && scale > 0 ? scale : 1;
}

// Decided first and carried out after, so that a member which stays as it is hears of nothing.
AutoLayoutPanelPrivate::Plan AutoLayoutPanelPrivate::makePlan(const std::vector<Node>& members,
                                                              Tail& tail) const
{
    const auto anchor = anchorRect();
    const QTransform toParent = implBehind(root)->localTransform();
    Plan plan;
    for (const Node& member : members) {
        const MemberBox box = boxOf(*implBehind(member));
        Placed placed{member, member.getPosition(), {}, false};
        if (const auto corner = tail.flow.place(box.bounds.size())) {
            placed.position = Vetra::fromQt(*corner - box.corner);
            placed.bounds = box.bounds.translated(Vetra::toQt(placed.position));
            placed.isShown = !anchor || liesWithin(toParent.mapRect(placed.bounds), *anchor);
        }
        if (placed.isShown)
            tail.shown |= placed.bounds;
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

void AutoLayoutPanelPrivate::carryOut(const Plan& plan, int index, DeferredError& error)
{
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

void AutoLayoutPanelPrivate::showFrame(const QRectF& members, DeferredError& error)
{
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
