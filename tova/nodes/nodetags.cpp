#include "tova/nodes/node.h"

#include "nodes/linearpathnodeimpl.h"
#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"

#include "tova/nodes/crossings/pathintersectionsenabledtag.h"

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
    NodeImpl* const impl = getValidImpl();
    impl->madeExtras().tags.insert_or_assign(tag, value);
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
    NodeImpl* const impl = getValidImpl();
    if (impl->extras() && impl->extras()->tags.erase(tag))
        tagChanged(*impl, tag);
}

void Node::removeAllTags()
{
    NodeImpl* const impl = getValidImpl();
    if (!impl->extras())
        return;
    const bool hadOptOut = isTagged(impl, pathIntersectionsEnabledTag());
    impl->extras()->tags.clear();
    if (hadOptOut)
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
