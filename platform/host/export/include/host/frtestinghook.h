#pragma once

#include "host/frswitch.h"

namespace Host {

/// A switch that tests turn, so that they see what users do not.
class HOST_EXPORT FrTestingHook : public FrSwitch {
public:
    using ChangeCallback = std::function<void(int)>;

    /// `changed`, which may be empty, hears of each new value.
    FrTestingHook(const std::string& name, const std::string& description,
                  const std::string& sourceFile, const std::string& group, int defaultValue,
                  ChangeCallback changed);
    ~FrTestingHook();
};

} // namespace Host
