#pragma once

#include "tova/layout/autolayoutpanel.h"

#include <QPointF>
#include <QSizeF>

#include <optional>

namespace Tova2 {

/// What is set on a panel and decides where its members go.
struct FlowRules {
    AutoLayoutPanel::ExpandMode expandMode = AutoLayoutPanel::ExpandMode::Horizontal;
    HorizontalAlignment hAlign = HorizontalAlignment::Left;
    VerticalAlignment vAlign = VerticalAlignment::Top;
    Vetra::Size<double> size; ///< in scene units
    double padding = 1;
};

/// Gives boxes their places, one after the other, in rows.
class Flow {
public:
    /// `scale` is how many scene units a unit of the panel is.
    Flow(const FlowRules& rules, double scale);

    /// The top left corner of the next box; nothing once the panel's height is used up. Rows that
    /// grow upwards never use it up.
    std::optional<QPointF> place(const QSizeF& box);

private:
    QPointF cornerOf(const QSizeF& box) const;
    void advance(double step);
    bool mustWrap(double step) const;
    void wrap();
    double rowStart() const;

    const FlowRules& m_rules;
    double m_width;
    double m_height;
    QPointF m_cursor;
    double m_rowHeight = 0;
};

} // namespace Tova2
