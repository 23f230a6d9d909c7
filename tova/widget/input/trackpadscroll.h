#pragma once

#include "vetra/glpoint.h"
#include "vetra/inputenums.h"

#include <QWheelEvent>

#include <boost/container/static_vector.hpp>

namespace Tova2 {

/// Scrolling on a trackpad, which the toolkit tells of as wheel events: a pan in pixels or, with
/// Ctrl, a pinch.
class TrackpadScroll {
public:
    enum class Kind { None, Pan, Pinch };
    struct Step {
        Kind kind = Kind::None;
        Vetra::GestureState state = Vetra::GestureState::NoGesture;
        Vetra::GLPoint<double> delta{}; ///< of a pan
        double factor = 1;              ///< of a pinch
    };
    using Steps = boost::container::static_vector<Step, 4>;

    /// False for a wheel.
    static bool isSource(const QWheelEvent& event);
    Steps take(const QWheelEvent& event);
    /// Of what goes on, in its last state.
    Steps end(Vetra::GestureState state = Vetra::GestureState::GestureFinished);
    bool isGoingOn() const { return m_kind != Kind::None; }
    /// Without a word, since it has been cancelled by other means.
    void forget() { m_kind = Kind::None; }

private:
    Kind m_kind = Kind::None;
};

} // namespace Tova2
