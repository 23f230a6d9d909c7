#include "widget/tools/viewkeys.h"

#include "tova/events/keyevent.h"
#include "tova/widget/glcanvas.h"

namespace Tova2 {

namespace {

using Vetra::Key;
using Vetra::Modifier;
using Vetra::Modifiers;

constexpr int kStepsALine = 6;

/// What is held, but for the keypad, whose keys mean the same.
Modifiers heldWith(const KeyEvent& event)
{
    const auto keypad = Modifiers(Modifier::Keypad).bits();
    return Modifiers::fromBits(event.modifiers().bits() & ~keypad);
}

bool scroll(GLCanvas& canvas, Key key)
{
    static constexpr struct {
        Key key;
        int dx, dy;
    } kArrows[] = {{Key::Left, -1, 0}, {Key::Right, 1, 0}, {Key::Up, 0, -1}, {Key::Down, 0, 1}};
    for (const auto& arrow : kArrows) {
        if (arrow.key != key)
            continue;
        canvas.requestScrollInSteps(arrow.dx * kStepsALine, arrow.dy * kStepsALine);
        return true;
    }
    return false;
}

bool page(GLCanvas& canvas, Key key, bool sideways)
{
    if (key != Key::PageUp && key != Key::PageDown)
        return false;
    const int pages = key == Key::PageUp ? -1 : 1;
    canvas.requestScrollInPages(sideways ? pages : 0, sideways ? 0 : pages);
    return true;
}

/// How far to move so that the beginning or the end of the scene comes to that of the room in the
/// view; nothing when there is room for all of it.
double moveToEnd(double begin, double extent, double roomBegin, double roomExtent, Key end)
{
    if (extent <= roomExtent)
        return 0;
    return end == Key::Home ? roomBegin - begin : roomBegin + roomExtent - (begin + extent);
}

bool showEnd(GLCanvas& canvas, Key key)
{
    if (key != Key::Home && key != Key::End)
        return false;
    const auto scene = canvas.getSceneRect();
    const auto margins = canvas.getMargins(); // left, top, right and bottom
    const auto view = canvas.getViewExtents();
    const auto room =
        canvas.viewRectToSceneRect({margins.x, margins.y, view.x - margins.x - margins.width,
                                    view.y - margins.y - margins.height});
    canvas.translate(moveToEnd(scene.x, scene.width, room.x, room.width, key),
                     moveToEnd(scene.y, scene.height, room.y, room.height, key));
    return true;
}

bool zoom(GLCanvas& canvas, Key key)
{
    switch (key) {
    case Key::Plus:
    case Key::Equal: // plus without Shift on many keyboards
    case Key::ZoomIn:
        canvas.zoomByStep(ZoomDirection::In, ZoomReason::Source::Keyboard);
        return true;
    case Key::Minus:
    case Key::ZoomOut:
        canvas.zoomByStep(ZoomDirection::Out, ZoomReason::Source::Keyboard);
        return true;
    case Key::Digit0:
        canvas.zoomToActualSize();
        return true;
    default:
        return false;
    }
}

} // namespace

bool moveViewByKey(GLCanvas& canvas, const KeyEvent& event)
{
    const Widgets::GLObject::Use use(canvas);
    if (!canvas.mayUserMoveView() || use.hasEnded())
        return false;
    const Key key = event.key();
    const Modifiers held = heldWith(event);
    const bool isPlain = held.isEmpty();
    const bool isShifted = held == Modifier::Shift;
    if (isPlain && key == Key::F) {
        canvas.zoomToSceneRect();
        return true;
    }
    if (isPlain && (scroll(canvas, key) || showEnd(canvas, key)))
        return true;
    if ((isPlain || isShifted) && page(canvas, key, isShifted))
        return true;
    // With Ctrl, too: so other programs have it. Plus may need Shift.
    const bool mayZoom =
        isPlain || held == Modifier::Ctrl ||
        (key == Key::Plus && (isShifted || held == (Modifier::Ctrl | Modifier::Shift)));
    return mayZoom && zoom(canvas, key);
}

} // namespace Tova2
