#pragma once

#include "nodes/effects/effectlayer.h"

#include <array>

namespace Tova2 {

class NodeImpl;
class Stroke;

/// How much farther the strokes of some nodes reach at a view scale than at a view scale of 1,
/// which is what bounds are computed for. Only ever widens until it is cleared.
class ViewReach {
public:
    /// False for a stroke whose width at other scales nobody can tell: its node may be anywhere.
    bool include(const Stroke& stroke, double reachPerWidth, double sceneScale)
    {
        return m_strokes.include(stroke, reachPerWidth, sceneScale);
    }
    /// Of a line that is drawn around what the node's own stroke reaches.
    bool includeTrace(const Stroke& stroke, double sceneScale)
    {
        return m_traces.include(stroke, TraceReach::kOfMitre, sceneScale);
    }
    void includeMarks(double reach) { m_marks = reach > m_marks ? reach : m_marks; }

    /// In scene units, with a pixel for antialiasing.
    double at(double viewScale) const;

private:
    struct Strokes {
        double cosmetic = 0;            ///< in pixels
        std::array<double, 5> scaled{}; ///< in scene units at a multiplier of 1, by function

        bool include(const Stroke& stroke, double reachPerWidth, double sceneScale);
        double at(double viewScale) const;
    };

    double m_marks = 0; ///< in scene units at a view scale of 1, and never less in pixels
    Strokes m_strokes, m_traces;
};

} // namespace Tova2
