#include "vetra/qtevents.h"

#include "vetra/eventsource.h"
#include "vetra/qt.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>

namespace Vetra {

namespace {

using Attributes = QList<QInputMethodEvent::Attribute>;

static_assert(int(MouseButton::XButton2) == Qt::XButton2);
static_assert(int(Modifier::Keypad) == Qt::KeypadModifier);
static_assert(int(GestureType::Custom) == Qt::CustomGesture);
static_assert(int(GestureState::GestureCanceled) == Qt::GestureCanceled);
static_assert(int(DropAction::TargetMove) == Qt::TargetMoveAction);
static_assert(int(ContextMenuReason::Other) == QContextMenuEvent::Other);

} // namespace

FocusReason fromQt(Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::MouseFocusReason:
        return FocusReason::MouseReason;
    case Qt::TabFocusReason:
        return FocusReason::TabReason;
    case Qt::BacktabFocusReason:
        return FocusReason::BacktabReason;
    default:
        return FocusReason::OtherReason;
    }
}

Qt::FocusReason toQt(FocusReason reason)
{
    switch (reason) {
    case FocusReason::MouseReason:
        return Qt::MouseFocusReason;
    case FocusReason::TabReason:
        return Qt::TabFocusReason;
    case FocusReason::BacktabReason:
        return Qt::BacktabFocusReason;
    case FocusReason::OtherReason:
        break;
    }
    return Qt::OtherFocusReason;
}

GLMouseEvent2 fromQt(const QMouseEvent& event, EventSource* widget)
{
    return {.widget = widget,
            .position = fromQt(event.pos()),
            .globalPosition = fromQt(event.globalPos()),
            .button = fromQt(event.button()),
            .buttons = fromQt(event.buttons()),
            .modifiers = fromQt(event.modifiers())};
}

GLMouseEvent2 fromQt(const QWheelEvent& event, EventSource* widget)
{
    const QPoint turn = event.angleDelta();
    return {.widget = widget,
            .position = fromQt(event.position().toPoint()),
            .globalPosition = fromQt(event.globalPosition().toPoint()),
            .delta = turn.y() != 0 ? turn.y() : turn.x(),
            .buttons = fromQt(event.buttons()),
            .modifiers = fromQt(event.modifiers())};
}

GLKeyEvent2 fromQt(const QKeyEvent& event, EventSource* widget)
{
    return {.widget = widget,
            .key = static_cast<Key>(event.key()),
            .modifiers = fromQt(event.modifiers()),
            .text = event.text().toStdU16String(),
            .isAutoRepeat = event.isAutoRepeat(),
            .buttons = fromQt(QGuiApplication::mouseButtons()),
            .nativeKey = event.nativeVirtualKey()};
}

GLInputMethodEvent2 fromQt(const QInputMethodEvent& event, EventSource* widget)
{
    return {.widget = widget,
            .commitString = event.commitString().toStdU16String(),
            .preeditString = event.preeditString().toStdU16String(),
            .attributes = event.attributes(),
            .replacementStart = event.replacementStart(),
            .replacementLength = event.replacementLength()};
}

GLFocusEvent2 fromQt(const QFocusEvent& event, EventSource* widget)
{
    return {widget, fromQt(event.reason())};
}

GLContextMenuEvent2 fromQt(const QContextMenuEvent& event, EventSource* widget)
{
    return {.widget = widget,
            .position = fromQt(event.pos()),
            .globalPosition = fromQt(event.globalPos()),
            .modifiers = fromQt(event.modifiers()),
            .reason = static_cast<ContextMenuReason>(event.reason())};
}

GLDragEvent2 fromQt(const QDropEvent& event, EventSource* widget, EventSource* source,
                    const GLMimeData& data)
{
    return {.widget = widget,
            .sourceWidget = source,
            .mimeData = data,
            .position = fromQt(event.pos()),
            .buttons = fromQt(event.mouseButtons()),
            .modifiers = fromQt(event.keyboardModifiers()),
            .possibleActions = fromQt(event.possibleActions()),
            .proposedAction = fromQt(event.proposedAction())};
}

GLMimeData fromQt(const QMimeData& data, std::span<const std::string> formats)
{
    GLMimeData result;
    for (const std::string& format : formats) {
        const QString name = QString::fromStdString(format);
        if (data.hasFormat(name))
            result.setData(format, data.data(name).toStdString());
    }
    return result;
}

QMouseEvent toQt(const GLMouseEvent2& event, QEvent::Type type)
{
    return {type,
            toQt(event.position),
            toQt(event.globalPosition),
            toQt(event.button),
            toQt(event.buttons),
            toQt(event.modifiers)};
}

QWheelEvent toQtWheel(const GLMouseEvent2& event)
{
    return {toQt(event.position),
            toQt(event.globalPosition),
            {},
            {0, event.delta},
            toQt(event.buttons),
            toQt(event.modifiers),
            Qt::NoScrollPhase,
            false};
}

QKeyEvent toQt(const GLKeyEvent2& event, QEvent::Type type)
{
    return {type, static_cast<int>(event.key),           toQt(event.modifiers), 0, event.nativeKey,
            0,    QString::fromStdU16String(event.text), event.isAutoRepeat};
}

QInputMethodEvent toQt(const GLInputMethodEvent2& event)
{
    const auto* const attributes = std::any_cast<Attributes>(&event.attributes);
    QInputMethodEvent result(QString::fromStdU16String(event.preeditString),
                             attributes ? *attributes : Attributes());
    result.setCommitString(QString::fromStdU16String(event.commitString), event.replacementStart,
                           event.replacementLength);
    return result;
}

QFocusEvent toQt(const GLFocusEvent2& event, QEvent::Type type)
{
    return QFocusEvent(type, toQt(event.reason));
}

QContextMenuEvent toQt(const GLContextMenuEvent2& event)
{
    return {static_cast<QContextMenuEvent::Reason>(event.reason), toQt(event.position),
            toQt(event.globalPosition), toQt(event.modifiers)};
}

} // namespace Vetra
