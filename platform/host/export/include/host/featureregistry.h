#pragma once

#include "host/host_export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Host {

enum class SwitchKind {
    Feature,     ///< an `FrFeature`
    TestingHook, ///< an `FrTestingHook`
    PlainFeature ///< made by `registerFeature`: a name and a value
};

/// What tooling shows of a switch. A text that its kind does not have is empty.
struct SwitchReading {
    SwitchKind kind = SwitchKind::PlainFeature;
    std::string name, description;
    std::string sourceFile; ///< the part of the program that it belongs to
    std::string group;
    int referenceNumber = 0; ///< in the maker's list of features; 0: none
    int defaultValue = 0, value = 0;
    std::int64_t reads = 0; ///< how often code asked for the value
};

/// Every switch that is alive, sorted by name. Being listed counts as no read. Any thread.
HOST_EXPORT std::vector<SwitchReading> listSwitches();

/// Sets all switches of this name and then calls back those that changed. False, with nothing
/// changed, when there is none or one of them refuses the value. What a callback throws goes to the
/// error reporter; one that sets its own switch is not called for that. GUI thread.
HOST_EXPORT bool setSwitch(std::string_view name, int value);

/// The value of the switch of this name that is the oldest, which counts the read. Any thread.
HOST_EXPORT std::optional<int> readSwitch(std::string_view name);

/// The plain call, for a feature that nobody holds: it stays until the process ends. One that is
/// there already keeps its value and its callbacks. `accepts` may refuse a value, `changed` hears
/// of the new one; both may be null. Any thread.
HOST_EXPORT void registerFeature(std::string_view name, int defaultValue, bool (*accepts)(int),
                                 void (*changed)(int));

} // namespace Host
