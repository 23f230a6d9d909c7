#pragma once

#include <QBrush>
#include <QPen>

namespace Tova2 {

class Fill;
class Stroke;

/// The pen for a stroke at a view scale, in local units; cosmetic where the stroke's logical width
/// is 0.
QPen penOf(const Stroke& stroke, double viewScale);
QBrush brushOf(const Fill& fill);

} // namespace Tova2
