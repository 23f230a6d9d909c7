#pragma once

#include <QRectF>

class QPainter;
class QPicture;

namespace Vetra {

/// Replays through a device of the recording's own resolution. What the painter has at that moment
/// holds for all of the picture: its transform and opacity go on top, its clip cannot be left, and
/// its pen, brush, font and hints play no part; they are back afterwards.
void replay(QPainter& painter, QPicture& picture);

/// Around the text of a recording, which the toolkit's own bounding rectangle leaves out.
QRectF textExtent(QPicture& picture);

} // namespace Vetra
