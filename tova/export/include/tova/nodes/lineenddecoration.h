#pragma once

#include "tova/nodes/node.h"
#include "tova/typename.h"

namespace Tova2 {

/// A node at the end of a line, turned the way the line ends: an arrow head, a port symbol. A value
/// with a handle to its node: copies place the same node.
///
/// Lengths and points are in the coordinates of the node's parent, which is the line, unless said
/// otherwise; angles are in degrees, growing from the x axis towards the y axis. Values that are
/// not finite are ignored, and values within 0.0001 of the present one count as equal to it.
class TOVA_EXPORT LineEndDecoration {
public:
    LineEndDecoration() = default;
    explicit LineEndDecoration(const Node& node) : m_node(node) {}

    /// Whether there is a node.
    bool isValid() const noexcept { return m_node.isValid(); }
    const Node& getNode() const noexcept { return m_node; }
    void setNode(const Node& node);
    /// Throws as `Node::setParent` does. Nothing without a node.
    void setParent(const Node& parent);

    /// Where the line ends before it is shortened.
    const Vetra::GLPoint<double>& getPosition() const noexcept { return m_position; }
    Vetra::GLPoint<double> getCopyOfPosition() const noexcept { return m_position; }
    /// Whether it has changed.
    bool setPosition(const Vetra::GLPoint<double>& position);

    /// The point of the node that lies on the line's end, in the node's coordinates.
    const Vetra::GLPoint<double>& getOrigin() const noexcept { return m_origin; }
    Vetra::GLPoint<double> getCopyOfOrigin() const noexcept { return m_origin; }
    void setOrigin(const Vetra::GLPoint<double>& origin);

    /// The direction in which the node is drawn unrotated, of length 1; (1, 0) at first.
    const Vetra::GLPoint<double>& getReferenceDirection() const noexcept { return m_reference; }
    Vetra::GLPoint<double> getCopyOfReferenceDirection() const noexcept { return m_reference; }
    /// Of any length whose square is more than 0.0001; shorter ones throw
    /// tova:nodes/ZeroLengthDirectionVector. Takes effect with the next `setDirection`.
    void setReferenceDirection(const Vetra::GLPoint<double>& direction);

    /// Turns the node the way the line leaves its end. Whether the rotation has changed; (0, 0)
    /// keeps it.
    bool setDirection(const Vetra::GLPoint<double>& direction);

    double getRotation() const noexcept { return m_rotation; }
    bool setRotation(double degrees);

    /// How far the node is shifted along its reference direction.
    double getRelativePosition() const noexcept { return m_relativePosition; }
    void setRelativePosition(double distance);

    /// How much of the line is left out before its end, so that it does not show through the node.
    /// Nothing is left out without a node, or below 0.
    double getLineBackoff() const noexcept { return m_lineBackoff; }
    void setLineBackoff(double distance);
    /// From where the drawn line ends to the position, if the line is straight that far.
    Vetra::GLPoint<double> getBackoffVector() const;

    /// `setPosition` with a point in the coordinate system of the node's parent, and the node is
    /// moved there at once.
    bool setCosPosition(const Vetra::GLPoint<double>& position);
    /// `setDirection` alike.
    bool setCosDirection(const Vetra::GLPoint<double>& direction);

    /// Moves and turns the node; whether that has changed its transform. True without a node.
    bool updateTransform();

    /// What has been set, with the tolerance above; not what earlier calls have left behind.
    bool operator==(const LineEndDecoration& other) const;

private:
    double m_relativePosition = 0;
    double m_lineBackoff = 0;
    Vetra::GLPoint<double> m_reference{1, 0};
    Vetra::GLPoint<double> m_position;
    Vetra::GLPoint<double> m_origin;
    // Of the last direction that was taken. No unit vector is 10 away, so the first is never
    // skipped.
    Vetra::GLPoint<double> m_cachedReference{-9, -10};
    Vetra::GLPoint<double> m_cachedDirection;
    double m_rotation = 0;
    Node m_node;

    TOVA_PLAIN_TYPE("Tova2.LineEndDecoration");
};

} // namespace Tova2
