#include "scene/displaylist.h"

#include "nodes/nodeimpl.h"
#include "scene/inheritancecache.h"

#include "vetra/qt.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

bool isNull(const QRectF& rect)
{
    // As scene bounds see it: without an area, or not a number.
    return !(rect.width() > 0 && rect.height() > 0);
}

} // namespace

Box boxAtUnitScale(const NodeImpl& node, const QTransform& sceneTransform)
{
    const QRectF rect = node.strokedRect();
    if (isNull(rect)) {
        node.noteBoundsKept();
        return Box::nowhere();
    }
    const bool hasEffects = !node.drawStyle().effect().isEmpty();
    return Box::of(hasEffects ? node.paintedRect(sceneTransform, QTransform(), 1.0)
                              : sceneTransform.mapRect(rect));
}

void DisplayList::markStale(NodeImpl& node)
{
    const Slot slot = node.sceneRecord().slot;
    if (slot == SceneRecord::kNone || (m_entries.flags(slot) & Stale))
        return;
    m_entries.setFlags(slot, m_entries.flags(slot) | Stale);
    m_entries.touch(slot);
}

void DisplayList::markSubtreeStale(NodeImpl& node)
{
    if (node.sceneRecord().isSubtreeStale)
        return;
    if (node.childItems().isEmpty()) {
        markStale(node);
        return;
    }
    for (NodeImpl* const below : subtreeOf(node)) {
        markStale(*below);
        below->sceneRecord().isSubtreeStale = true;
    }
}

bool DisplayList::includeTrace(const Effect& effect, double scale)
{
    const Effect::Trace* const trace = effect.trace();
    return !trace || m_reach.includeTrace(trace->stroke, scale);
}

DisplayList::Description DisplayList::describe(const NodeImpl& node, InheritanceCache& inheritance)
{
    const auto& inherited = inheritance.of(node);
    Description result;
    if (inherited.isSpecial)
        result.flags |= Special;
    // The toolkit's own threshold for "nothing to see".
    if (inherited.opacity < 0.001)
        result.flags |= Transparent;
    if (!inherited.isVisible) {
        result.flags |= Hidden | Uncounted;
        return result;
    }
    const QTransform transform = inherited.sceneTransform;
    result.box = boxAtUnitScale(node, transform);
    if (result.box.isNowhere() || !node.countsInBounds())
        result.flags |= Uncounted;
    // Of a square's sides along the scene's axes: a turned one reaches farther by its corners.
    const double scale = transform.type() <= QTransform::TxTranslate
                             ? 1.0
                             : std::max(std::abs(transform.m11()) + std::abs(transform.m21()),
                                        std::abs(transform.m12()) + std::abs(transform.m22()));
    const bool isKnown = m_reach.include(node.drawStyle().stroke(), node.strokeReach(), scale) &&
                         includeTrace(node.drawStyle().effect(), scale);
    m_reach.includeMarks(node.markReach());
    const bool isFixed =
        isKnown && !inherited.ignoresTransformations && !node.geometryDependsOnScale();
    if (!isFixed && !result.box.isNowhere()) {
        result.box = Box::everywhere();
        result.flags |= Special; // to be looked at more closely at the view's scale
    }
    return result;
}

Box DisplayList::place(NodeImpl& node, InheritanceCache& inheritance)
{
    if (!m_entries.holds(node))
        return describe(node, inheritance).box;
    const Slot slot = node.sceneRecord().slot;
    // Before the node is asked: a host's answer may edit it again, or take it out.
    node.sceneRecord().isSubtreeStale = false;
    for (NodeImpl* at = node.parentNode(); at && at->sceneRecord().isSubtreeStale;
         at = at->parentNode())
        at->sceneRecord().isSubtreeStale = false;
    m_entries.setFlags(slot, m_entries.flags(slot) & ~Stale);
    const Description description = describe(node, inheritance);
    if (m_entries.node(slot) != &node)
        return Box::nowhere();
    const std::uint8_t kept = m_entries.flags(slot) & (TooDeep | Stale);
    m_entries.setFlags(slot, kept | description.flags);
    m_entries.setBox(slot, description.box);
    m_entries.touch(slot);
    return description.box;
}

Box DisplayList::knownBox(const NodeImpl& node) const
{
    const Slot slot = node.sceneRecord().slot;
    return slot == SceneRecord::kNone || (m_entries.flags(slot) & Stale) ? Box::nowhere()
                                                                         : m_entries.box(slot);
}

Box DisplayList::computeBox(const Subtree& nodes)
{
    InheritanceCache inheritance(m_edits);
    Box all;
    for (NodeImpl* const node : nodes)
        all.unite(place(*node, inheritance));
    return all;
}

void DisplayList::refreshBoxes()
{
    InheritanceCache inheritance(m_edits);
    // What hosts make stale when they are asked for bounds waits for the next time.
    const auto touched = m_entries.takeTouched();
    for (const auto block : touched) {
        for (Slot slot = EntryBlocks::first(block); slot < m_entries.end(block); ++slot) {
            if (NodeImpl* const node = m_entries.node(slot);
                node && (m_entries.flags(slot) & Stale))
                place(*node, inheritance);
        }
    }
    for (const auto block : touched)
        m_entries.updateCommonBox(block);
}

void DisplayList::candidates(const Box& area, std::uint8_t without, Slots& slots) const
{
    const auto order = m_entries.order();
    if (order.empty())
        return;
    // Kept here, or each slot found would have the arrays looked up again for every block.
    const Box* const commonBoxes = &m_entries.commonBox(0);
    const Box wanted = area;
    for (const auto block : order) {
        if (!commonBoxes[block].touches(wanted))
            continue;
        const Slot end = m_entries.end(block);
        for (Slot slot = EntryBlocks::first(block); slot < end; ++slot) {
            if (m_entries.box(slot).touches(wanted) && !(m_entries.flags(slot) & without))
                slots.push_back(slot);
        }
    }
}

} // namespace Tova2
