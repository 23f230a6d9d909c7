#pragma once

#include <QBrush>
#include <QPen>

namespace Tova2 {

class Fill;
class Stroke;

/// The pen for a stroke at a view scale, in local units; cosmetic where the stroke's logical width
/// is 0.
QPen penOf(const Stroke& stroke, double viewScale);
/// In local units, without a stroke 0: what a host's scale function answers is no number at times,
/// or more than a device can draw.
double drawnWidth(const Stroke& stroke, double viewScale);
QBrush brushOf(const Fill& fill);

} // namespace Tova2
