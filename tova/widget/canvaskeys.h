#pragma once

class QKeyEvent;

namespace Tova2 {

class GLCanvas;

/// What keys do to the view when no tool wants them: arrows scroll by steps, page keys by pages,
/// plus and minus zoom by steps, 0 shows the actual size and F all of the scene. False for others.
bool pressKey(GLCanvas& canvas, const QKeyEvent& event);

} // namespace Tova2
