#include "events/tools/autoscrollsettings.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Tova2 {

namespace {

struct Setting {
    std::string_view name;
    double AutoscrollSettings::*value;
    bool mayBeZero;
};

constexpr Setting kSettings[] = {
    {"RegionThickness", &AutoscrollSettings::regionThickness, false},
    {"DynamicRegionBackoff", &AutoscrollSettings::dynamicRegionBackoff, true},
    {"SpeedThresholdPxPerSec", &AutoscrollSettings::speedThresholdPxPerSec, true},
    {"ImmediateResumeTimeout", &AutoscrollSettings::immediateResumeTimeout, true},
    {"SpeedCheckTimeout", &AutoscrollSettings::speedCheckTimeout, true},
    {"RepeatInterval", &AutoscrollSettings::repeatInterval, false},
    {"MaxStep", &AutoscrollSettings::maxStep, true},
};

const Setting* find(std::string_view name)
{
    const auto* const found =
        std::find_if(std::begin(kSettings), std::end(kSettings),
                     [name](const Setting& setting) { return setting.name == name; });
    return found == std::end(kSettings) ? nullptr : found;
}

} // namespace

std::optional<double> AutoscrollSettings::get(std::string_view name) const
{
    const Setting* const setting = find(name);
    return setting ? std::optional<double>(this->*setting->value) : std::nullopt;
}

bool AutoscrollSettings::set(std::string_view name, double newValue)
{
    const Setting* const setting = find(name);
    if (!setting || !std::isfinite(newValue) || newValue < 0 ||
        (newValue == 0 && !setting->mayBeZero))
        return false;
    this->*setting->value = newValue;
    return true;
}

} // namespace Tova2
