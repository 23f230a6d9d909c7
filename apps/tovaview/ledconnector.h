#pragma once

#include "diagramscene.h"
#include "router.h"

#include <tova/nodes/openlinearpathnode.h>

#include <optional>

namespace TovaView {

/// A connector that follows its blocks. As long as both have moved by the same it keeps the look
/// that the layout gave it; otherwise it is led at right angles.
class LedConnector {
public:
    /// How it runs at present.
    struct Way {
        Point offset;  ///< of the layout's own course
        Points course; ///< instead of that one; empty for that one

        bool operator==(const Way&) const = default;
    };

    /// Diagram and connector have to outlive it.
    LedConnector(const Diagram& diagram, const Connector& connector, const ConnectorNodes& nodes);

    /// False for one that shows nothing or has no way: it stays as it is.
    bool canFollow() const { return m_nodes.line.isValid() && m_course.size() > 1; }
    const ConnectorEnd& tail() const { return m_tail; }
    const ConnectorEnd& head() const { return m_head; }

    const Way& way() const { return m_way; }
    /// Where it should run when its ends have moved by that much since the layout.
    Way wayFor(const Point& tailBy, const Point& headBy, const Surroundings& surroundings) const;
    /// The same, but never the layout's own way or one like it.
    Way wayAround(const Point& tailBy, const Point& headBy, const Surroundings& surroundings) const;
    /// Whether its present course enters one of them, by more than a touch.
    bool runsThroughOneOf(const std::vector<Rect>& rects) const;
    void lead(const Way& way);

private:
    void showCourse();
    Tova2::OpenLinearPathNode makeLine() const;
    Point labelShift() const;
    Point endLabelShift(const Point& label) const;
    void placeLabels();

    const Connector& m_connector;
    ConnectorNodes m_nodes;
    Points m_course; ///< the layout's
    Rect m_reach;    ///< of the present course
    ConnectorEnd m_tail, m_head;
    Way m_way;
    std::optional<Tova2::OpenLinearPathNode>
        m_line;                          ///< along `m_way.course`, made with the first one
    std::vector<Point> m_labelPositions; ///< in the layout; labels, then end labels
};

} // namespace TovaView
