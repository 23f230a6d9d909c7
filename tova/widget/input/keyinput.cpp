#include "widget/input/keyinput.h"

#include "widget/input/dispatchcore.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/inputmethodevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/tool.h"
#include "vetra/qtevents.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QKeySequence>

#include <utility>

namespace Tova2 {

namespace {

bool isEditingShortcut(const QKeyEvent& event)
{
    for (const auto key : {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Cut,
                           QKeySequence::Copy, QKeySequence::Paste, QKeySequence::SelectAll}) {
        if (event.matches(key))
            return true;
    }
    return false;
}

bool isFunctionKey(int key)
{
    return key >= Qt::Key_F1 && key <= Qt::Key_F35;
}

} // namespace

bool KeyInput::press(const QKeyEvent& event)
{
    const auto key = Vetra::fromQt(event, &m_core.canvas());
    forget(event);
    m_held.push_back({key, event.nativeScanCode()});
    return send(EventType::KeyPressEvent, key);
}

bool KeyInput::release(const QKeyEvent& event)
{
    forget(event);
    return send(EventType::KeyReleaseEvent, Vetra::fromQt(event, &m_core.canvas()));
}

/// By its place on the keyboard: a plus whose Shift comes up first is an equals sign by then.
void KeyInput::forget(const QKeyEvent& event)
{
    std::erase_if(m_held, [&event](const Held& held) {
        return held.scanCode != 0 ? held.scanCode == event.nativeScanCode()
                                  : held.key.key == static_cast<Vetra::Key>(event.key());
    });
}

bool KeyInput::send(EventType type, Vetra::GLKeyEvent2 event)
{
    KeyEvent key(type, std::move(event));
    return !m_core.send(key) || key.isConsumed();
}

void KeyInput::releaseHeld()
{
    for (auto& [key, scanCode] : std::exchange(m_held, {})) {
        key.text.clear();
        key.isAutoRepeat = false;
        send(EventType::KeyReleaseEvent, std::move(key));
        if (!m_core.isOpen())
            return;
    }
}

bool KeyInput::compose(const QInputMethodEvent& event)
{
    InputMethodEvent composed(EventType::InputMethodEvent, Vetra::fromQt(event, &m_core.canvas()));
    return !m_core.send(composed) || composed.isConsumed();
}

bool KeyInput::overridesShortcut(const QKeyEvent& event) const
{
    Scene* const scene = m_core.scene();
    if (!scene)
        return false;
    if (event.key() == Qt::Key_Escape)
        return scene->hasActiveOrAlertTool();
    // An active tool owns the interaction: a host's Delete must not take away what is being moved.
    if (!scene->getActiveTool())
        return false;
    const auto chord = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return isEditingShortcut(event) ||
           (!(event.modifiers() & chord) && !isFunctionKey(event.key()));
}

bool KeyInput::isTextWanted() const
{
    const Tool* const tool = m_core.scene() ? m_core.scene()->getActiveTool() : nullptr;
    return tool && tool->isModifyingTool() == Tool::ModifyingType::ModifiesModel;
}

void KeyInput::noteTextWanted()
{
    if (!m_core.isOpen() || std::exchange(m_wasTextWanted, isTextWanted()) == m_wasTextWanted)
        return;
    if (m_core.viewport().hasFocus())
        QGuiApplication::inputMethod()->update(Qt::ImEnabled);
}

void KeyInput::query(QInputMethodQueryEvent& event) const
{
    const QWidget& viewport = m_core.viewport();
    for (unsigned bit = 1; bit != 0; bit <<= 1) {
        const auto query = static_cast<Qt::InputMethodQuery>(bit);
        if (!(event.queries() & query))
            continue;
        if (query == Qt::ImEnabled)
            event.setValue(query, isTextWanted());
        else if (query == Qt::ImCursorRectangle) // where a menu asked for by key appears, too
            event.setValue(query, QRect(viewport.rect().center(), QSize(1, 1)));
        else
            event.setValue(query, viewport.inputMethodQuery(query));
    }
}

} // namespace Tova2
