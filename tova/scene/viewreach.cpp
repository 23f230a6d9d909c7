#include "scene/viewreach.h"

#include "tova/nodes/style/lodscale.h"
#include "tova/nodes/style/stroke.h"

#include <algorithm>

namespace Tova2 {

namespace {

// Other functions belong to hosts and may die before the record of their use does, so they are not
// kept.
const std::array<const LodScale*, 5>& standardFunctions()
{
    static const std::array<const LodScale*, 5> functions{
        ConstantLodScale::instance(), ConstantInLodScale::instance(),
        ConstantOutLodScale::instance(), SelectionNonLinearLodScale::instance(),
        SplitLinearLodScale::instance()};
    return functions;
}

} // namespace

bool ViewReach::Strokes::include(const Stroke& stroke, double reachPerWidth, double sceneScale)
{
    if (stroke.isNoStroke() || stroke.scaleFunction() == LodScale::instance()) {
        if (!stroke.isNoStroke() && stroke.logicalWidth() == 0)
            cosmetic = std::max(cosmetic, reachPerWidth * std::max(sceneScale, 1.0));
        return true;
    }
    if (stroke.logicalWidth() == 0) {
        cosmetic = std::max(cosmetic, reachPerWidth * std::max(sceneScale, 1.0));
        return true;
    }
    const auto& functions = standardFunctions();
    const auto found = std::find(functions.begin(), functions.end(), stroke.scaleFunction());
    if (found == functions.end())
        return false;
    double& reach = scaled[static_cast<std::size_t>(found - functions.begin())];
    reach = std::max(reach, stroke.logicalWidth() * reachPerWidth * sceneScale);
    return true;
}

double ViewReach::Strokes::at(double viewScale) const
{
    double farthest = cosmetic * std::max(0.0, 1.0 / viewScale - 1.0);
    const auto& functions = standardFunctions();
    for (std::size_t i = 0; i < functions.size(); ++i) {
        if (scaled[i] > 0) {
            const double growth = functions[i]->scale(viewScale) - functions[i]->scale(1.0);
            farthest = std::max(farthest, scaled[i] * growth);
        }
    }
    return farthest;
}

double ViewReach::at(double viewScale) const
{
    const double marks = m_marks * std::max(1.0, 1.0 / viewScale);
    return m_strokes.at(viewScale) + m_traces.at(viewScale) + marks + 1.0 / viewScale;
}

} // namespace Tova2
