#include "tova/nodes/node.h"

#include "nodes/destruction.h"
#include "nodes/linearpathnodeimpl.h"
#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"

#include "tova/nodes/crossings/pathintersectionsenabledtag.h"

#include <utility>

namespace Tova2 {

using Vetra::StringID;

namespace {

bool isTagged(const NodeImpl* impl, const StringID& tag)
{
    const NodeExtras* const extras = impl->extras();
    return extras && extras->tags.contains(tag);
}

/// Tags are the host's own business, but for a path: one of them may take it out of the crossings.
void tagChanged(NodeImpl& node, const StringID& tag)
{
    LinearPathNodeImpl* const path = node.asLinearPath();
    if (tag != pathIntersectionsEnabledTag() || !path)
        return;
    path->markCrossingsStale();
    node.reportChange(ChangeLevel::Geometry);
}

} // namespace

void Node::addTag(const StringID& tag)
{
    addTag(tag, Vetra::any());
}

void Node::addTag(const StringID& tag, const Vetra::any& value)
{
    const DestructionDelay delay;
    NodeImpl* const impl = getValidImpl();
    auto given = value;
    impl->madeExtras().tags[tag].swap(given);
    // What was there before ends after this: its destructor may edit the tags.
    tagChanged(*impl, tag);
}

bool Node::hasTag(const StringID& tag) const
{
    return isTagged(getValidImpl(), tag);
}

Vetra::any Node::getTagValue(const StringID& tag) const
{
    const NodeImpl* const impl = getValidImpl();
    return isTagged(impl, tag) ? impl->extras()->tags.at(tag) : Vetra::any();
}

std::vector<StringID> Node::getTags() const
{
    std::vector<StringID> names;
    if (const NodeExtras* const extras = getValidImpl()->extras()) {
        for (const auto& [name, value] : extras->tags)
            names.push_back(name);
    }
    return names;
}

void Node::removeTag(const StringID& tag)
{
    const DestructionDelay delay;
    NodeImpl* const impl = getValidImpl();
    if (!isTagged(impl, tag))
        return;
    auto& tags = impl->extras()->tags;
    const auto found = tags.find(tag);
    const auto removed = std::move(found->second);
    tags.erase(found);
    tagChanged(*impl, tag);
}

void Node::removeAllTags()
{
    const DestructionDelay delay;
    NodeImpl* const impl = getValidImpl();
    if (!impl->extras())
        return;
    const auto removed = std::exchange(impl->extras()->tags, {});
    if (removed.contains(pathIntersectionsEnabledTag()))
        tagChanged(*impl, pathIntersectionsEnabledTag());
}

std::vector<Node> Node::getChildrenWithTag(const StringID& tag) const
{
    std::vector<Node> tagged;
    const auto children = getValidImpl()->childItems();
    for (QGraphicsItem* const child : children) {
        if (isTagged(nodeOf(child), tag))
            tagged.emplace_back(nodeOf(child));
    }
    return tagged;
}

std::vector<Node> Node::getDescendantsWithTag(const StringID& tag) const
{
    std::vector<Node> tagged;
    NodeImpl* const root = getValidImpl();
    for (NodeImpl* const node : subtreeOf(*root)) {
        if (node != root && isTagged(node, tag))
            tagged.emplace_back(node);
    }
    return tagged;
}

} // namespace Tova2
