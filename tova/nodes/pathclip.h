#pragma once

class QPainter;
class QPainterPath;

namespace Tova2 {

/// Keeps the painter within an area besides where it is kept already, in its coordinates.
///
/// The toolkit takes rows of a clip that all begin and end alike for a rectangle, and forgets that
/// the last may be covered in part; which rows do depends on what else is clipped away. Where parts
/// of a picture are painted on their own, the last pixel of the bounds of the device's clip is
/// nobody's: half of it, added or left out, keeps the rows from being alike.
void intersectClip(QPainter& painter, const QPainterPath& area);

} // namespace Tova2
