#pragma once

#include "tova/nodes/lineenddecoration.h"

#include <QPointF>

#include <memory>

namespace Tova2 {

class NodeImpl;

/// How a line leaves one of its ends: outwards, of length 1; (0, 0) where it has no direction.
struct LineTip {
    QPointF position;
    QPointF direction;

    static LineTip between(const QPointF& from, const QPointF& to);
    /// Finite, unless it is beyond the range of numbers.
    static double distance(const QPointF& a, const QPointF& b);
};

/// The decorations of one line, made when first asked for. Their nodes are children of the line.
///
/// A decoration can be edited through a reference. What depends on more than the decoration's own
/// numbers, its node's place in the tree and how far the line is drawn, is as it was when last
/// applied until `apply` is called, so that nothing changes unreported.
class LineEnds {
public:
    LineEnds();
    ~LineEnds();
    enum class Which { Start, End };

    bool isEmpty() const { return !m_ends; }
    LineEndDecoration decoration(Which which) const;
    LineEndDecoration& mutableDecoration(Which which);
    /// Gives the decoration's node to `line` and takes the former one out. Throws as
    /// `Node::setParent` does and changes nothing then. Whether the backoff is another.
    bool set(Which which, const LineEndDecoration& decoration, NodeImpl& line);
    /// The same for what has been changed through references.
    bool apply(NodeImpl& line);
    /// Moves the node to where the line ends. One that the host has hung elsewhere is left alone.
    void place(Which which, const LineTip& tip, const NodeImpl& line);

    /// As applied, and at least 0.
    double backoff(Which which) const;

private:
    struct End {
        LineEndDecoration decoration;
        Node child;
        double backoff = 0;
    };
    struct Both {
        End start, end;
        End& of(Which which) { return which == Which::Start ? start : end; }
    };

    bool applyOne(Which which, NodeImpl& line);
    void dismiss(Node node, const NodeImpl& line);

    std::unique_ptr<Both> m_ends;
};

} // namespace Tova2
