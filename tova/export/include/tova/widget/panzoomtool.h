#pragma once

#include "tova/events/tool.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "tova/widget/momentumcontroller.h"
#include "vemit/listener.h"
#include "vetra/inputenums.h"

#include <chrono>
#include <optional>

namespace Tova2 {

class GLCanvas;

/// Moves the view of the canvas that an event arrived on: dragged with the middle button, or with
/// the left one while the space bar is held; by a pan gesture; by a pinch, which zooms about its
/// centre. Who lets go while moving sees the view glide on. It never touches the model.
///
/// A glide ends by itself, with any press, with the release of the space bar, when anything else
/// moves the view, the host included, when another tool begins something, and with its canvas or
/// scene. Cancelling ends what the hand does; the glide goes on.
class TOVA_EXPORT PanZoomTool : public Tool, public Vemit::Listener {
public:
    /// The stack says which scene it works for: `scene` need not be given, and changes nothing.
    explicit PanZoomTool(Scene* scene = nullptr);
    ~PanZoomTool() override;
    static Vetra::StringID staticGetDefaultRole();

    /// Whether a view flung with the middle button glides on, as one flung with the space bar
    /// always does; yes unless set.
    bool middleButtonGlides() const noexcept { return m_middleButtonGlides; }
    void setMiddleButtonGlides(bool on) noexcept { m_middleButtonGlides = on; }

    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    EAutoScrollType autoScrollTypeDuringDrag() override { return EAutoScrollType::None; }
    void cancel(ECancelReason reason, const Tool* cause) override;
    std::optional<Vetra::Cursor> overrideCursor() override;
    /// Nothing: a model that changes under the view is no reason to let go of it.
    void onAppModelChange(EAppModelChangePhase phase) override;
    /// For tests "TestFixedMomentumInterval" with seconds as a double makes a glide go by steps, of
    /// which "TestMomentumUpdate" makes one.
    void receiveMessage(Vetra::StringID id, const Vetra::any& payload) override;
    void onRemoveFromStack() override;
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }

    void handleMousePressEvent(MouseEvent& event) override;
    void handleMouseDoubleClickEvent(MouseEvent& event) override;
    void handleMouseMoveEvent(MouseEvent& event) override;
    void handleMouseReleaseEvent(MouseEvent& event) override;
    void handleKeyPressEvent(KeyEvent& event) override;
    void handleKeyReleaseEvent(KeyEvent& event) override;
    void handleInputMethodEvent(InputMethodEvent& event) override;
    void handleFocusOutEvent(FocusEvent& event) override;
    void handlePanGestureEvent(PanGestureEvent& event) override;
    void handlePinchGestureEvent(PinchGestureEvent& event) override;

private:
    /// What they have done since their gesture began.
    struct Fingers {
        Vetra::GLPoint<double> point; ///< where they would have dragged a pointer to
        double pinched = 0;           ///< by what changes of scale, as logarithms
        std::chrono::steady_clock::time_point movedAt{};
    };

    /// A key other than the space bar, while the tool has the keyboard: by default those that move
    /// the view. True when that has been its meaning.
    virtual bool handleKeyPressDuringPan(KeyEvent& event);

    void startPan(const MouseEvent& event);
    bool claim(bool& mark);
    void setIdle();
    void rest();
    void letGo();
    void setCanvas(GLCanvas* canvas);
    void onCanvasDestroy();

    bool isInGesture() const noexcept { return m_isPanGesture || m_isPinching; }
    void noteGesture(bool& kind, Vetra::GestureState state, GLCanvas& canvas);
    void endGesture(bool& kind);
    void followFingers(const Vetra::GLPoint<double>& way);
    void zoomBy(double factor, const Vetra::GLPoint<double>& scenePoint);

    void follow(const Vetra::GLPoint<double>& way);
    void translateWithSoftLimits(double dx, double dy, bool fromMomentum);
    bool isInterrupted() const;
    void stopGliding();
    void settle(GLCanvas& canvas);
    void onMomentumBeginningNotification();
    void onMomentumNotification(Vetra::GLPoint<double> velocity);
    void onMomentumEndedNotification();

    GLCanvas* m_canvas = nullptr; // listened to; null when it ends, or shows another scene
    Vetra::MouseButton m_button = Vetra::MouseButton::LeftButton; // that pans
    Vetra::GLPoint<int> m_lastPosition;                           // of the pointer, in the widget
    Vetra::GLPoint<double> m_behind; // by which the view has still to follow, in its pixels
    Fingers m_fingers;
    bool m_isPanning = false;
    bool m_isPanGesture = false;
    bool m_isPinching = false;
    bool m_isSpaceHeld = false;
    bool m_isMoving = false; // the view, right now
    bool m_middleButtonGlides = true;
    /// Where the scene's origin was in the view; none when the glide is not to settle.
    std::optional<Vetra::GLPoint<double>> m_glideFrom;
    MomentumController m_momentum;

    TOVA_DERIVED_TYPE("Tova2.PanZoomTool", Tool);
};

} // namespace Tova2
