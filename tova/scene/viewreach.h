#pragma once

#include <array>

namespace Tova2 {

class NodeImpl;
class Stroke;

/// How much farther the strokes of some nodes reach at a view scale than at a view scale of 1,
/// which is what bounds are computed for. Only ever widens until it is cleared.
class ViewReach {
public:
    /// False for a stroke whose width at other scales nobody can tell: its node may be anywhere.
    bool include(const Stroke& stroke, double reachPerWidth, double sceneScale);
    void includeMarks(double reach) { m_marks = reach > m_marks ? reach : m_marks; }

    /// In scene units, with a pixel for antialiasing.
    double at(double viewScale) const;

private:
    double m_marks = 0;    ///< in scene units at a view scale of 1, and never less in pixels
    double m_cosmetic = 0; ///< in pixels
    std::array<double, 5> m_scaled{}; ///< in scene units at a multiplier of 1, by standard function
};

} // namespace Tova2
