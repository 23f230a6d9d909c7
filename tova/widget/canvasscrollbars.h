#pragma once

#include "tova/widget/orientation.h"

#include <QRect>
#include <QRectF>

#include <functional>

class QScrollBar;
class QWidget;

namespace Tova2 {

/// The two scroll bars over the lower and right edge of a view. They take no room from it, so their
/// coming and going never changes what is shown.
class CanvasScrollbars {
public:
    // Of the view, by which pages and lines scroll.
    static constexpr double kPage = 0.9;
    static constexpr double kLine = 1.0 / 20;

    /// The bars are children of `view`, and of nobody else's. `scrolled` is called when the user
    /// presses or moves one: with the distance in view pixels by which more to the right or below
    /// is wanted.
    using Scrolled = std::function<void(double dx, double dy)>;
    CanvasScrollbars(QWidget& view, Scrolled scrolled);

    void setWanted(bool wanted) { m_isWanted = wanted; }
    /// `content` is what can be scrolled over, in view pixels, `size` that of the view. Answers
    /// which bars have moved, come or gone, as a set of `Orientation`s.
    unsigned place(const QRectF& content, const QSizeF& size);
    bool isVisible(Orientation orientation) const;
    /// In view pixels; empty while it is hidden.
    QRect geometry(Orientation orientation) const;

private:
    struct Range {
        double start, end, page;
    };

    QScrollBar* bar(Orientation orientation) const;
    bool placeBar(Orientation orientation, bool isNeeded, const QRect& geometry);
    void setRange(Orientation orientation, const Range& range);
    void moved(Orientation orientation, int value);

    Scrolled m_scrolled;
    QScrollBar* m_bars[2];
    QWidget* m_corner;         ///< between the two
    int m_shown[2] = {0, 0};   ///< values of what is shown
    double m_unit[2] = {1, 1}; ///< view pixels a step of the value
    bool m_isWanted = true;
    bool m_isPlacing = false;
};

} // namespace Tova2
