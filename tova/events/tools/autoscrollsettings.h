#pragma once

#include <optional>
#include <string_view>

namespace Tova2 {

/// How the autoscroller behaves; lengths in view pixels, times in seconds.
struct AutoscrollSettings {
    double regionThickness = 20;
    double dynamicRegionBackoff = 3;
    double speedThresholdPxPerSec = 10.0;
    double immediateResumeTimeout = 0.75;
    double speedCheckTimeout = 0.5;
    double repeatInterval = 0.01;
    double maxStep = 250.0;

    std::optional<double> get(std::string_view name) const;
    bool set(std::string_view name, double value);
};

} // namespace Tova2
