#pragma once

#include <QString>

class QImage;

namespace TestSupport {

/// Compares with a picture that somebody has looked at. Machines may round differently; a shape
/// that has moved by a pixel, or looks otherwise, fails. What was drawn is then beside the test's
/// own folder for temporary files.
///
/// With TOVA_WRITE_GOLDEN set the picture is written instead, to be looked at, and the test counts
/// as skipped.
void expectGolden(const QImage& image, const QString& file);

/// How far two pictures of one size are apart.
struct PictureDifference {
    int plain = 0;  ///< pixels that anybody sees to be others
    int slight = 0; ///< pixels that differ by more than rounding
    bool isNothing(const QImage& image) const;
};
PictureDifference differencesOf(const QImage& a, const QImage& b);

} // namespace TestSupport
