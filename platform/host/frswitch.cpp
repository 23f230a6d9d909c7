#include "host/frswitch.h"

#include "host/frfeature.h"
#include "host/frtestinghook.h"

#include "switchregister.h"

#include <utility>

namespace Host {

FrSwitch::FrSwitch(const SwitchReading& facts, std::function<void(int)> changed)
    : m_state(std::make_shared<SwitchState>(facts))
{
    m_state->changed = std::move(changed);
    SwitchRegister::instance().add(m_state);
}

FrSwitch::~FrSwitch()
{
    SwitchRegister::instance().remove(*m_state);
}

int FrSwitch::value() const noexcept
{
    return m_state->read();
}

FrFeature::FrFeature(const std::string& name, const std::string& description,
                     const std::string& sourceFile, const std::string& group, int referenceNumber,
                     int defaultValue, ChangeCallback changed)
    : FrSwitch({SwitchKind::Feature, name, description, sourceFile, group, referenceNumber,
                defaultValue},
               changed)
{}

FrFeature::~FrFeature() = default;

FrTestingHook::FrTestingHook(const std::string& name, const std::string& description,
                             const std::string& sourceFile, const std::string& group,
                             int defaultValue, ChangeCallback changed)
    : FrSwitch({SwitchKind::TestingHook, name, description, sourceFile, group, 0, defaultValue},
               std::move(changed))
{}

FrTestingHook::~FrTestingHook() = default;

} // namespace Host
