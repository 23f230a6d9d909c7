#pragma once

#include "host/featureregistry.h"

#include <functional>
#include <memory>

namespace Host {

struct SwitchState;

/// What features and testing hooks share: a value under a name, listed from construction to
/// destruction. Meant as an object that lives as long as its library. Several may have one name.
class HOST_EXPORT FrSwitch {
public:
    FrSwitch(const FrSwitch&) = delete;
    FrSwitch& operator=(const FrSwitch&) = delete;

    /// 0 is off. Counts the read. Any thread.
    int value() const noexcept;

protected:
    FrSwitch(const SwitchReading& facts, std::function<void(int)> changed);
    ~FrSwitch();

private:
    std::shared_ptr<SwitchState> m_state;
};

} // namespace Host
