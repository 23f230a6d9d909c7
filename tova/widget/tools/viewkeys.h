#pragma once

namespace Tova2 {

class GLCanvas;
class KeyEvent;

/// Does what the key means to a view that nobody else wants it for: the arrows scroll, the page
/// keys page (with Shift sideways), Home and End show the beginning and the end of the scene, plus
/// and minus zoom by a step, 0 is the actual size, F fits the scene. False when it means nothing.
bool moveViewByKey(GLCanvas& canvas, const KeyEvent& event);

} // namespace Tova2
