#pragma once

#include <QRectF>

class QImage;
class QSize;
class QSizeF;

namespace Vetra {
class Image;
}

namespace Tova2 {

/// The part of an image, in its pixels, that fills `target` without being distorted: all of it in
/// one direction, its middle in the other. Both sizes enclose an area.
QRectF coveringPart(const QSizeF& image, const QSizeF& target);

/// That part at the size of `target`, smooth whether it is reduced or enlarged. Null when memory is
/// short.
QImage coveringImage(const Vetra::Image& image, const QSize& target);

} // namespace Tova2
