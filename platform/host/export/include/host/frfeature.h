#pragma once

#include "host/frswitch.h"

namespace Host {

/// A feature of the product that can be switched while it runs.
class HOST_EXPORT FrFeature : public FrSwitch {
public:
    using ChangeCallback = void (*)(int);

    /// `changed`, which may be null, hears of each new value.
    FrFeature(const std::string& name, const std::string& description,
              const std::string& sourceFile, const std::string& group, int referenceNumber,
              int defaultValue, ChangeCallback changed);
    ~FrFeature();
};

} // namespace Host
