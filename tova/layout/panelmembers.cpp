#include "layout/panelmembers.h"

#include "nodes/deferrederror.h"
#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"
#include "nodes/nodekind.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace Tova2 {

PanelMembers::PanelMembers(Node root, Changed changed)
    : m_root(std::move(root)), m_changed(std::move(changed))
{}

void PanelMembers::reconcile(DeferredError& error)
{
    dropStrangers(error);
    const auto children = m_root.getChildren();
    if (static_cast<int>(children.size()) > count())
        takeInNewcomers(children);
    for (Member& member : m_members)
        follow(member);
}

bool PanelMembers::isHere(const Node& node) const
{
    return node.getParent() == m_root;
}

void PanelMembers::takeInNewcomers(const std::vector<Node>& children)
{
    std::unordered_set<Node> known;
    for (const Member& member : m_members)
        known.insert(member.node);
    for (const Node& child : children) {
        if (!known.contains(child))
            takeIn(child);
    }
}

void PanelMembers::dropStrangers(DeferredError& error)
{
    const auto first =
        std::stable_partition(m_members.begin(), m_members.end(),
                              [this](const Member& member) { return isHere(member.node); });
    if (first == m_members.end())
        return;
    std::vector<Member> strangers(std::make_move_iterator(first),
                                  std::make_move_iterator(m_members.end()));
    m_members.erase(first, m_members.end());
    std::erase_if(m_names, [this](const auto& named) { return !isHere(named.second); });
    for (Member& stranger : strangers) {
        for (auto& connection : stranger.followed)
            connection.disconnect();
        if (stranger.isCut)
            error.run([&] { stranger.node.setVisible(true); });
    }
}

void PanelMembers::takeIn(const Node& node)
{
    m_members.push_back({node, false, {}});
}

// A node without a shape is as large as its parts, so those are followed as well.
void PanelMembers::follow(Member& member)
{
    NodeImpl& impl = *implBehind(member.node);
    if (impl.hasShape() && !member.followed.empty())
        return;
    for (auto& connection : std::exchange(member.followed, {}))
        connection.disconnect();
    const auto told = [this](NodeImpl&, ChangeLevel level) { m_changed(level); };
    const auto nodes = impl.hasShape() ? Subtree{&impl} : subtreeOf(impl);
    for (NodeImpl* const node : nodes)
        member.followed.push_back(
            node->changeEmitter().connect(static_cast<Vemit::Listener*>(this), told));
}

void PanelMembers::place(const Node& node, int index)
{
    if (const int old = indexOf(node); old < 0)
        takeIn(node);
    else
        std::rotate(m_members.begin() + old, m_members.begin() + old + 1, m_members.end());
    const int at = std::clamp(index, 0, count() - 1);
    std::rotate(m_members.begin() + at, m_members.end() - 1, m_members.end());
}

void PanelMembers::setName(const Node& node, const Vetra::StringID& name)
{
    std::erase_if(m_names, [&](const auto& named) { return named.second == node; });
    if (!name.empty())
        m_names.insert_or_assign(name, node);
}

int PanelMembers::indexOf(const Node& node) const
{
    const auto found = std::find_if(m_members.begin(), m_members.end(),
                                    [&](const Member& member) { return member.node == node; });
    return found == m_members.end() ? -1 : static_cast<int>(found - m_members.begin());
}

Node PanelMembers::at(int index) const
{
    return index >= 0 && index < count() ? m_members[index].node : Node();
}

Node PanelMembers::named(const Vetra::StringID& name) const
{
    const auto found = m_names.find(name);
    return found == m_names.end() ? Node() : found->second;
}

std::vector<Node> PanelMembers::nodes() const
{
    std::vector<Node> nodes;
    nodes.reserve(m_members.size());
    for (const Member& member : m_members)
        nodes.push_back(member.node);
    return nodes;
}

void PanelMembers::setCut(const Node& node, int likelyIndex, bool isCut)
{
    const int index = at(likelyIndex) == node ? likelyIndex : indexOf(node);
    if (index >= 0)
        m_members[index].isCut = isCut;
}

} // namespace Tova2
