#pragma once

#include <QRectF>

class QPainter;
class QPicture;

namespace Vetra {

/// Replays through a device of the recording's own resolution. What the painter has at that moment
/// holds for all of the picture: its transform and opacity go on top, its clip cannot be left, and
/// its pen, brush, font and hints play no part; they are back afterwards.
void replay(QPainter& painter, QPicture& picture);

/// Around all that a picture draws, no less; the toolkit's own rectangle leaves out text and much
/// of the width of lines.
QRectF extentOf(QPicture& picture);

} // namespace Vetra
