#pragma once

#include "nodes/changelevel.h"

#include "tova/nodes/node.h"
#include "vemit/connection.h"
#include "vemit/listener.h"
#include "vetra/stringid.h"

#include <functional>
#include <unordered_map>
#include <vector>

namespace Tova2 {

class DeferredError;

/// The members of a panel in their order. The children of the panel's root are the truth, since
/// hosts can hang nodes under it and take them away; `reconcile` follows them.
class PanelMembers : private Vemit::Listener {
public:
    using Changed = std::function<void(ChangeLevel)>;

    /// `changed` hears of each change of a member, or of a part of one that has no shape itself.
    PanelMembers(Node root, Changed changed);

    /// Drops members that have left the root and takes in nodes that have come to it, at the end.
    /// What is dropped while cut becomes visible again.
    void reconcile(DeferredError& error);
    /// Gives the node, which is a child of the root, that index or the nearest one.
    void place(const Node& node, int index);
    /// What `reconcile` does for a node that was placed last, if nothing else has changed.
    void followLast() { follow(m_members.back()); }
    void setName(const Node& node, const Vetra::StringID& name);

    int count() const { return static_cast<int>(m_members.size()); }
    int indexOf(const Node& node) const;
    Node at(int index) const;
    Node named(const Vetra::StringID& name) const;
    std::vector<Node> nodes() const;

    /// Whether the layout hides the member. Nothing for a stranger.
    void setCut(const Node& node, int likelyIndex, bool isCut);

private:
    struct Member {
        Node node;
        bool isCut = false;
        std::vector<Vemit::Connection> followed;
    };

    bool isHere(const Node& node) const;
    void dropStrangers(DeferredError& error);
    void takeInNewcomers(const std::vector<Node>& children);
    void takeIn(const Node& node);
    void follow(Member& member);

    Node m_root;
    Changed m_changed;
    std::vector<Member> m_members;
    std::unordered_map<Vetra::StringID, Node> m_names;
};

} // namespace Tova2
