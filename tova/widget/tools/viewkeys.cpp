#include "widget/tools/viewkeys.h"

#include "tova/events/keyevent.h"
#include "tova/widget/glcanvas.h"

namespace Tova2 {

namespace {

using Point = Vetra::GLPoint<double>;
using Vetra::Key;
using Vetra::Modifier;
using Vetra::Modifiers;

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
        canvas.requestScrollInSteps(arrow.dx, arrow.dy);
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

/// The corner of the scene into the same corner of what the margins leave of the view, as far as
/// panning may go.
bool showCorner(GLCanvas& canvas, Key key)
{
    if (key != Key::Home && key != Key::End)
        return false;
    const auto scene = canvas.getSceneRect();
    const auto margins = canvas.getMargins(); // left, top, right and bottom
    const auto view = canvas.getViewExtents();
    const Point from = key == Key::Home ? Point{scene.x, scene.y}
                                        : Point{scene.x + scene.width, scene.y + scene.height};
    const Point to = key == Key::Home ? Point{margins.x, margins.y}
                                      : Point{view.x - margins.width, view.y - margins.height};
    if (scene.isValid())
        canvas.translate(canvas.viewPointToScenePoint(to) - from);
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
    const Key key = event.key();
    const Modifiers held = heldWith(event);
    const bool isPlain = held.isEmpty();
    const bool isShifted = held == Modifier::Shift;
    if (isPlain && key == Key::F) {
        canvas.zoomToSceneRect();
        return true;
    }
    if (isPlain && (scroll(canvas, key) || showCorner(canvas, key)))
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
