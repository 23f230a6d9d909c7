#pragma once

#include "tova/events/delegatingeventhandler.h"
#include "tova/typename.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"

#include <vector>

namespace Tova2 {

class MouseEvent;
class Tool;

/// Cancels a tool when the pointer leaves all of its hot regions, and passes events on to its
/// delegate. Usually the tool's own delegate; the tool has to outlive it.
class TOVA_EXPORT ToolDeactivator : public DelegatingEventHandler {
public:
    explicit ToolDeactivator(Tool* tool) noexcept : m_tool(tool) {}
    ~ToolDeactivator() override;
    ToolDeactivator(const ToolDeactivator&) = delete;
    ToolDeactivator& operator=(const ToolDeactivator&) = delete;
    Tool* tool() const noexcept { return m_tool; }

    /// In scene coordinates; refused when a value is not finite or a side is negative. Without any
    /// region the tool is left alone.
    void addHotRegion(const Vetra::GLRect<double>& region);
    /// Takes out the first equal one.
    void removeHotRegion(const Vetra::GLRect<double>& region);
    void removeAllHotRegions() { m_hotRegions.clear(); }
    const std::vector<Vetra::GLRect<double>>& hotRegions() const noexcept { return m_hotRegions; }
    /// How far a region reaches beyond its edges, which belong to it; in view pixels. Refused when
    /// not finite.
    void setHotRegionsMargin(double margin);
    double hotRegionsMargin() const noexcept { return m_margin; }

    using DelegatingEventHandler::eventHandlerDelegate;
    using DelegatingEventHandler::setEventHandlerDelegate;

    void handleMouseMoveEvent(MouseEvent& event) override;

protected:
    virtual void deactivateTool();

private:
    bool isInHotRegion(const MouseEvent& event) const;

    Tool* m_tool;
    std::vector<Vetra::GLRect<double>> m_hotRegions;
    double m_margin = 0;
    bool* m_isGone = nullptr; // set while a move is being handled

    TOVA_DERIVED_TYPE("Tova2.ToolDeactivator", DelegatingEventHandler);
};

} // namespace Tova2
