#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/inputevents.h"

#include <memory>
#include <optional>
#include <string_view>

namespace Tova2 {

class AutoscrollerPrivate;
class EventCanvas;
class GestureClock;
class MouseEvent;

/// What the autoscroller asks of the canvas that it scrolls; lengths are view pixels.
class TOVA_EXPORT AutoscrollView {
public:
    virtual ~AutoscrollView();
    /// The part of the canvas that shows the scene.
    virtual Vetra::GLRect<double> autoscrollArea() const = 0;
    /// Moves the visible area over the scene, right and down when positive. False at the limit of
    /// what can be shown.
    virtual bool scrollBy(const Vetra::GLPoint<double>& step) = 0;
    /// Dispatches a move like one of the user's.
    virtual void deliver(MouseEvent& event) = 0;

    TOVA_BASE_TYPE("Tova2.AutoscrollView");
};

/// Scrolls a canvas while the pointer drags something to its edge, the faster the farther out.
/// Tool stacks start it with an active tool and stop it with the end of its activity; the canvas
/// tells it of the pointer. After each step it delivers a synthetic move, so that the tool sees the
/// scene pass under a pointer that rests. GUI thread only.
///
///     Idle ---- a tool with autoscroll gets active ----> Alert
///     Alert --- the pointer rests in the edge region, or is beyond the edge ----> Autoscroll
///     Autoscroll --- the pointer leaves the region ----> Pause
///     Pause --- it is back within ImmediateResumeTimeout ----> Autoscroll, otherwise ----> Alert
///     any ----- the tool is not active any more ----> Idle
///
/// Settings by name, with their defaults:
///  - RegionThickness 20: of the region along each edge, in pixels; a third of the area at most.
///  - DynamicRegionBackoff 3: a drag that begins inside a region has to go this many pixels on
///    towards the edge. The region grows back as the pointer withdraws.
///  - SpeedThresholdPxPerSec 10: a pointer that is faster does not rest.
///  - SpeedCheckTimeout 0.5: for how many seconds the pointer's speed is measured.
///  - ImmediateResumeTimeout 0.75: seconds.
///  - RepeatInterval 0.01: seconds between steps.
///  - MaxStep 250: pixels.
class TOVA_EXPORT Autoscroller {
public:
    enum class State { Idle, Alert, Autoscroll, Pause };

    /// That of the process, on the host's event loop, or what stands in for it.
    static Autoscroller& instance();
    /// Stands in for that of the process, and for older stand-ins, until it dies: stacks and
    /// canvases go by it, so that a test can scroll by a clock of its own. Null is taken for the
    /// host's event loop.
    explicit Autoscroller(std::unique_ptr<GestureClock> clock);
    ~Autoscroller();
    Autoscroller(const Autoscroller&) = delete;
    Autoscroller& operator=(const Autoscroller&) = delete;

    /// The canvas calls this for each press and move, before it dispatches the event. `canvas` and
    /// `view` are the same thing's two sides.
    void pointerMoved(AutoscrollView& view, EventCanvas& canvas, const Vetra::GLMouseEvent2& event);
    /// Before it dies, and when it stops showing what is dragged; for all autoscrollers.
    static void forgetView(const AutoscrollView& view);

    State state() const noexcept;
    /// "Idle", "Alert", "Autoscroll" or "Pause".
    const char* stateName() const noexcept;
    /// None for a name that is no setting.
    std::optional<double> setting(std::string_view name) const;
    /// Refuses unknown names and values that are negative or not finite; the thickness and the
    /// interval have to be positive.
    bool setSetting(std::string_view name, double value);

private:
    Autoscroller(std::unique_ptr<GestureClock> clock, bool isOwn);

    std::unique_ptr<AutoscrollerPrivate> d;

    TOVA_PLAIN_TYPE("Tova2.Autoscroller");
};

} // namespace Tova2
