#pragma once

#include "diagram.h"

#include <QSize>

#include <optional>

namespace TovaView {

struct SizeWish {
    double scale = 0; ///< units a point; 0: as it comes
    QSize size;       ///< units; invalid: as it comes
};

/// How an area of the scene lies on a page.
struct PageSize {
    QSize size;          ///< of the page, in units
    Rect target;         ///< where the area goes, in units
    bool shrunk = false; ///< smaller than one unit a point, for the page's limit
};

/// A unit is a pixel or, on paper, a point. Nothing when the wished scale makes a side longer than
/// `longest` or the page larger than `largest` square units; without a wish the page shrinks to
/// fit.
std::optional<PageSize> pageFor(const Rect& area, const SizeWish& wish, double longest,
                                double largest);

/// What of the scene all of the page shows when the area lies on it so, the ground around included.
Rect shownOn(const PageSize& page, const Rect& area);

} // namespace TovaView
