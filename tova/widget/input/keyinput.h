#pragma once

#include "tova/events/eventtype.h"
#include "vetra/inputevents.h"

#include <QInputMethodQueryEvent>
#include <QKeyEvent>

#include <vector>

namespace Tova2 {

class DispatchCore;

/// Keys and input methods.
class KeyInput {
public:
    explicit KeyInput(DispatchCore& core) : m_core(core) {}

    // Each answers whether somebody has taken it; the toolkit goes on with what nobody takes, such
    // as moving the focus by Tab.

    bool press(const QKeyEvent& event);
    bool release(const QKeyEvent& event);
    bool compose(const QInputMethodEvent& event);
    /// Whether the key comes as a press, although it is also a shortcut of the host's.
    bool overridesShortcut(const QKeyEvent& event) const;
    void query(QInputMethodQueryEvent& event) const;

    /// Their releases are going to arrive elsewhere.
    void releaseHeld();
    /// Tells the input method when text begins or ends to be wanted.
    void noteTextWanted();

private:
    bool send(EventType type, Vetra::GLKeyEvent2 event);
    bool isTextWanted() const;

    DispatchCore& m_core;
    struct Held {
        Vetra::GLKeyEvent2 key;
        unsigned scanCode = 0;
    };
    void forget(const QKeyEvent& event);

    std::vector<Held> m_held;
    bool m_wasTextWanted = false;
};

} // namespace Tova2
