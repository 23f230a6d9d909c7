#include "tova/nodes/node.h"

#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"

namespace Tova2 {

using Vetra::StringID;

namespace {

bool isTagged(const NodeImpl* impl, const StringID& tag)
{
    const NodeExtras* const extras = impl->extras();
    return extras && extras->tags.contains(tag);
}

} // namespace

void Node::addTag(const StringID& tag)
{
    addTag(tag, Vetra::any());
}

void Node::addTag(const StringID& tag, const Vetra::any& value)
{
    getValidImpl()->madeExtras().tags.insert_or_assign(tag, value);
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
    if (NodeExtras* const extras = getValidImpl()->extras())
        extras->tags.erase(tag);
}

void Node::removeAllTags()
{
    if (NodeExtras* const extras = getValidImpl()->extras())
        extras->tags.clear();
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
