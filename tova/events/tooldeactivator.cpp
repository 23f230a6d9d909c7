#include "tova/events/tooldeactivator.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/mouseevent.h"
#include "tova/events/tool.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

bool isUsable(const Vetra::GLRect<double>& region)
{
    return std::isfinite(region.x) && std::isfinite(region.y) && std::isfinite(region.width) &&
           std::isfinite(region.height) && region.width >= 0 && region.height >= 0;
}

bool isWithin(double value, double from, double size, double margin)
{
    return from - margin <= value && value <= from + size + margin;
}

/// From the scene to the view as it is now, or without a canvas, as it was when the event was made.
class ViewMapping {
public:
    explicit ViewMapping(const MouseEvent& event)
        : m_canvas(event.canvas()), m_transform(event.getViewportTransform())
    {}
    Vetra::GLPoint<double> map(const Vetra::GLPoint<double>& point) const
    {
        return m_canvas ? m_canvas->scenePointToViewPoint(point) : m_transform.map(point);
    }
    Vetra::GLRect<double> map(const Vetra::GLRect<double>& rect) const
    {
        return m_canvas ? m_canvas->sceneRectToViewRect(rect) : m_transform.mapRect(rect);
    }

private:
    const EventCanvas* m_canvas;
    const Vetra::Transform& m_transform;
};

/// Tells whether the owner of a flag pointer died while this was in its place.
class DeathWatch {
public:
    explicit DeathWatch(bool*& place) noexcept
        : m_place(place), m_outer(std::exchange(place, &m_isGone))
    {}
    DeathWatch(const DeathWatch&) = delete;
    DeathWatch& operator=(const DeathWatch&) = delete;
    ~DeathWatch()
    {
        if (!m_isGone)
            m_place = m_outer;
        else if (m_outer)
            *m_outer = true;
    }
    bool isGone() const noexcept { return m_isGone; }

private:
    bool m_isGone = false;
    bool*& m_place;
    bool* m_outer;
};

} // namespace

ToolDeactivator::~ToolDeactivator()
{
    if (m_isGone)
        *m_isGone = true;
}

void ToolDeactivator::addHotRegion(const Vetra::GLRect<double>& region)
{
    if (isUsable(region))
        m_hotRegions.push_back(region);
}

void ToolDeactivator::removeHotRegion(const Vetra::GLRect<double>& region)
{
    const auto found = std::find(m_hotRegions.begin(), m_hotRegions.end(), region);
    if (found != m_hotRegions.end())
        m_hotRegions.erase(found);
}

void ToolDeactivator::setHotRegionsMargin(double margin)
{
    if (std::isfinite(margin))
        m_margin = margin;
}

void ToolDeactivator::handleMouseMoveEvent(MouseEvent& event)
{
    if (m_hotRegions.empty() || isInHotRegion(event))
        return DelegatingEventHandler::handleMouseMoveEvent(event);
    // The tool that is deactivated usually owns this object, and may drop it at once.
    const DeathWatch watch(m_isGone);
    deactivateTool();
    if (!watch.isGone())
        DelegatingEventHandler::handleMouseMoveEvent(event);
}

void ToolDeactivator::deactivateTool()
{
    if (m_tool)
        m_tool->cancel(Tool::ECancelReason::AllToolsCancelled, nullptr);
}

bool ToolDeactivator::isInHotRegion(const MouseEvent& event) const
{
    const ViewMapping view(event);
    const Vetra::GLPoint<double> point = view.map(event.scenePos());
    return std::any_of(m_hotRegions.begin(), m_hotRegions.end(), [&](const auto& region) {
        const Vetra::GLRect<double> rect = view.map(region);
        return isWithin(point.x, rect.x, rect.width, m_margin) &&
               isWithin(point.y, rect.y, rect.height, m_margin);
    });
}

} // namespace Tova2
