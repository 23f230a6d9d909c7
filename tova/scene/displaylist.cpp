#include "scene/displaylist.h"

#include "nodes/nodeimpl.h"
#include "scene/placementcache.h"
#include "scene/stackingorder.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

bool isSpecialItself(const NodeImpl& node)
{
    return node.opacity() < 1.0 || node.isClipping() || node.ignoresTransformations();
}

/// What a node has from itself and from its ancestors.
struct Inherited {
    bool isSpecial = false;
    bool ignoresTransformations = false;
    double opacity = 1;
};

Inherited inheritedBy(const NodeImpl& node)
{
    Inherited result;
    for (const NodeImpl* at = &node; at; at = at->parentNode()) {
        if (!isSpecialItself(*at))
            continue;
        result.isSpecial = true;
        result.ignoresTransformations |= at->ignoresTransformations();
        result.opacity *= at->opacity();
    }
    return result;
}

bool isNull(const QRectF& rect)
{
    // As scene bounds see it: without an area, or not a number.
    return !(rect.width() > 0 && rect.height() > 0);
}

} // namespace

Box boxAtUnitScale(const NodeImpl& node, const QTransform& sceneTransform)
{
    const QRectF rect = node.strokedRect();
    if (isNull(rect))
        return Box::nowhere();
    const bool hasEffects = !node.drawStyle().effect().isEmpty();
    return Box::of(hasEffects ? node.paintedRect(sceneTransform, QTransform(), 1.0)
                              : sceneTransform.mapRect(rect));
}

std::uint32_t DisplayList::append(NodeImpl& node, bool isTooDeep)
{
    const auto slot = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes.push_back(&node);
    m_boxes.push_back(Box::nowhere());
    m_flags.push_back(isTooDeep ? TooDeep : 0);
    m_hasTooDeep |= isTooDeep;
    if (slot % kBlock == 0) {
        m_blockBoxes.push_back(Box::nowhere());
        m_isBlockStale.push_back(false);
    }
    node.sceneRecord().slot = slot;
    return slot;
}

void DisplayList::addOnTop(NodeImpl& root)
{
    // One that stacks behind its parent goes below all others even without one.
    m_isOrderStale |= root.stacksBehindParent();
    if (m_isOrderStale)
        return; // the rebuild finds it
    visitInStackingOrder(root, 0, [this](NodeImpl& node, int depth) {
        append(node, depth >= Limits::paintedNodeDepth);
        markStale(node);
    });
}

void DisplayList::strikeOut(NodeImpl& node) noexcept
{
    SceneRecord& record = node.sceneRecord();
    if (record.slot != SceneRecord::kNone) {
        m_nodes[record.slot] = nullptr;
        m_boxes[record.slot] = Box::nowhere();
        m_flags[record.slot] = Hidden | Uncounted;
        // A block's box may stay too large for a while, which costs a little time and no truth.
        if (++m_struckOut * 2 > m_nodes.size())
            m_isOrderStale = true;
    }
    const auto topLevelIndex = record.topLevelIndex;
    record = SceneRecord();
    record.topLevelIndex = topLevelIndex;
}

void DisplayList::markStale(NodeImpl& node)
{
    ++m_marks;
    SceneRecord& record = node.sceneRecord();
    if (record.isStale)
        return;
    record.isStale = true;
    if (record.slot != SceneRecord::kNone)
        m_staleSlots.push_back(record.slot);
}

void DisplayList::markSubtreeStale(NodeImpl& node)
{
    ++m_marks;
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

void DisplayList::touchBlock(std::uint32_t slot)
{
    const auto block = static_cast<std::uint32_t>(slot / kBlock);
    if (!m_isBlockStale[block]) {
        m_isBlockStale[block] = true;
        m_staleBlocks.push_back(block);
    }
}

bool DisplayList::includeTrace(const Effect& effect, double scale)
{
    const Effect::Trace* const trace = effect.trace();
    return !trace || m_reach.includeTrace(trace->stroke, scale);
}

DisplayList::Description DisplayList::describe(const NodeImpl& node, PlacementCache& placements)
{
    const Inherited inherited = inheritedBy(node);
    Description result;
    if (inherited.isSpecial)
        result.flags |= Special;
    // The toolkit's own threshold for "nothing to see".
    if (inherited.opacity < 0.001)
        result.flags |= Transparent;
    if (!node.isVisibleToScene()) {
        result.flags |= Hidden | Uncounted;
        return result;
    }
    const QTransform transform = placements.sceneTransform(node);
    result.box = boxAtUnitScale(node, transform);
    if (result.box.isNowhere() || !node.countsInBounds())
        result.flags |= Uncounted;
    const double scale = transform.type() <= QTransform::TxTranslate
                             ? 1.0
                             : std::sqrt(std::abs(transform.determinant()));
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

void DisplayList::place(NodeImpl& node, std::uint32_t slot, PlacementCache& placements)
{
    // Before the node is asked: a host's answer may edit it again, or take it out.
    node.sceneRecord().isStale = node.sceneRecord().isSubtreeStale = false;
    const Description description = describe(node, placements);
    if (m_nodes[slot] != &node)
        return;
    m_flags[slot] = static_cast<std::uint8_t>((m_flags[slot] & TooDeep) | description.flags);
    m_boxes[slot] = description.box;
    touchBlock(slot);
}

Box DisplayList::knownBox(const NodeImpl& node) const
{
    const SceneRecord& record = const_cast<NodeImpl&>(node).sceneRecord();
    return record.slot == SceneRecord::kNone || record.isStale ? Box::nowhere()
                                                               : m_boxes[record.slot];
}

Box DisplayList::computeBox(NodeImpl& node)
{
    PlacementCache placements;
    const auto slot = node.sceneRecord().slot;
    if (slot == SceneRecord::kNone)
        return describe(node, placements).box;
    place(node, slot, placements);
    // It may be in the list of another scene by now.
    return m_nodes[slot] == &node ? m_boxes[slot] : Box::nowhere();
}

void DisplayList::rebuild(std::span<NodeImpl* const> topLevels)
{
    const auto oldBoxes = std::move(m_boxes);
    const auto oldFlags = std::move(m_flags);
    const std::size_t expected = m_nodes.size() - m_struckOut;
    m_boxes.clear();
    m_flags.clear();
    m_nodes.clear();
    m_blockBoxes.clear();
    m_isBlockStale.clear();
    m_staleSlots.clear();
    m_staleBlocks.clear();
    m_struckOut = 0;
    m_hasTooDeep = false;
    m_boxes.reserve(expected);
    m_flags.reserve(expected);
    m_nodes.reserve(expected);
    for (NodeImpl* const top : topLevels) {
        visitInStackingOrder(*top, 0, [&](NodeImpl& node, int depth) {
            SceneRecord& record = node.sceneRecord();
            const auto oldSlot = record.slot;
            const bool isTooDeep = depth >= Limits::paintedNodeDepth;
            const auto slot = append(node, isTooDeep);
            if (oldSlot == SceneRecord::kNone || record.isStale) {
                record.isStale = false;
                markStale(node);
            } else {
                m_boxes[slot] = oldBoxes[oldSlot];
                m_flags[slot] = static_cast<std::uint8_t>((oldFlags[oldSlot] & ~TooDeep) |
                                                          (isTooDeep ? TooDeep : 0));
                touchBlock(slot);
            }
        });
    }
    m_isOrderStale = false;
}

void DisplayList::refresh(std::span<NodeImpl* const> topLevels)
{
    if (m_isOrderStale)
        rebuild(topLevels);
    PlacementCache placements;
    // What hosts make stale when they are asked for bounds waits for the next time.
    const auto stale = std::exchange(m_staleSlots, {});
    auto marks = m_marks;
    for (const auto slot : stale) {
        NodeImpl* const node = m_nodes[slot];
        if (!node)
            continue;
        place(*node, slot, placements);
        // Nor do placements hold any longer then.
        if (std::exchange(marks, m_marks) != m_marks)
            placements = PlacementCache();
    }
    refreshBlocks();
}

void DisplayList::refreshBlocks()
{
    for (const auto block : m_staleBlocks) {
        const std::size_t first = block * kBlock, end = std::min(first + kBlock, m_boxes.size());
        Box common;
        for (std::size_t slot = first; slot < end; ++slot)
            common.unite(m_boxes[slot]);
        m_blockBoxes[block] = common;
        m_isBlockStale[block] = false;
    }
    m_staleBlocks.clear();
}

void DisplayList::candidates(const Box& area, std::uint8_t without, Slots& slots) const
{
    for (std::size_t block = 0; block < m_blockBoxes.size(); ++block) {
        if (!m_blockBoxes[block].touches(area))
            continue;
        const std::size_t first = block * kBlock, end = std::min(first + kBlock, m_boxes.size());
        for (std::size_t slot = first; slot < end; ++slot) {
            if (m_boxes[slot].touches(area) && !(m_flags[slot] & without))
                slots.push_back(static_cast<std::uint32_t>(slot));
        }
    }
}

} // namespace Tova2
