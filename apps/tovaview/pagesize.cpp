#include "pagesize.h"

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

int unitsFor(double length)
{
    // A hair above a whole number comes from arithmetic, not from the diagram.
    return std::max(1, static_cast<int>(std::ceil(length - 1e-6)));
}

PageSize scaled(const Rect& area, double scale)
{
    return {{unitsFor(area.width * scale), unitsFor(area.height * scale)},
            {0, 0, area.width * scale, area.height * scale}};
}

PageSize fitted(const Rect& area, const QSize& size)
{
    const double scale = std::min(size.width() / area.width, size.height() / area.height);
    const double width = area.width * scale, height = area.height * scale;
    return {size, {(size.width() - width) / 2, (size.height() - height) / 2, width, height}};
}

} // namespace

std::optional<PageSize> pageFor(const Rect& area, const SizeWish& wish, double longest,
                                double largest)
{
    const auto fits = [&](double width, double height) {
        return width <= longest && height <= longest && width * height <= largest;
    };
    if (wish.size.isValid()) {
        if (!fits(wish.size.width(), wish.size.height()))
            return {};
        return fitted(area, wish.size);
    }
    const double scale = wish.scale > 0 ? wish.scale : 1;
    if (fits(std::ceil(area.width * scale), std::ceil(area.height * scale)))
        return scaled(area, scale);
    if (wish.scale > 0)
        return {};
    // A little below the limits, so that rounding up stays within.
    const double side = longest / std::max(area.width, area.height);
    PageSize page =
        scaled(area, 0.999 * std::min(side, std::sqrt(largest / (area.width * area.height))));
    page.shrunk = true;
    return page;
}

Rect shownOn(const PageSize& page, const Rect& area)
{
    const double points = area.width / page.target.width; // a unit
    return {area.x - page.target.x * points, area.y - page.target.y * points,
            page.size.width() * points, page.size.height() * points};
}

} // namespace TovaView
