#include "host/featureregistry.h"

#include "vetra/errorreporter.h"

#include "switchregister.h"

#include <algorithm>
#include <iterator>

namespace Host {

SwitchReading SwitchState::reading() const
{
    SwitchReading result = facts;
    result.value = value.load(std::memory_order_relaxed);
    result.reads = reads.load(std::memory_order_relaxed);
    return result;
}

void SwitchState::set(int newValue)
{
    if (value.exchange(newValue) == newValue || !changed || isTelling)
        return;
    isTelling = true;
    try {
        changed(newValue);
    } catch (...) {
        Vetra::reportError(std::current_exception(), "feature switch");
    }
    isTelling = false;
}

SwitchRegister& SwitchRegister::instance()
{
    // Never destroyed: switches are statics of any library, and leave in any order.
    static auto* const all = new SwitchRegister;
    return *all;
}

void SwitchRegister::add(const std::shared_ptr<SwitchState>& state)
{
    const std::lock_guard lock(m_mutex);
    m_states.push_back(state);
}

void SwitchRegister::addPlain(const std::shared_ptr<SwitchState>& state)
{
    const std::lock_guard lock(m_mutex);
    const bool isKnown = std::any_of(m_states.begin(), m_states.end(), [&](const auto& known) {
        return known->facts.kind == SwitchKind::PlainFeature &&
               known->facts.name == state->facts.name;
    });
    if (!isKnown)
        m_states.push_back(state);
}

void SwitchRegister::remove(const SwitchState& state)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_states, [&](const auto& known) { return known.get() == &state; });
}

SwitchRegister::States SwitchRegister::all() const
{
    const std::lock_guard lock(m_mutex);
    return m_states;
}

SwitchRegister::States SwitchRegister::named(std::string_view name) const
{
    States states = all();
    std::erase_if(states, [&](const auto& state) { return state->facts.name != name; });
    return states;
}

std::vector<SwitchReading> listSwitches()
{
    std::vector<SwitchReading> readings;
    for (const auto& state : SwitchRegister::instance().all())
        readings.push_back(state->reading());
    std::stable_sort(readings.begin(), readings.end(),
                     [](const auto& a, const auto& b) { return a.name < b.name; });
    return readings;
}

bool setSwitch(std::string_view name, int value)
{
    const auto states = SwitchRegister::instance().named(name);
    const auto accepts = [&](const auto& state) {
        return !state->accepts || state->accepts(value);
    };
    if (states.empty() || !std::all_of(states.begin(), states.end(), accepts))
        return false;
    for (const auto& state : states)
        state->set(value);
    return true;
}

std::optional<int> readSwitch(std::string_view name)
{
    const auto states = SwitchRegister::instance().named(name);
    if (states.empty())
        return std::nullopt;
    return states.front()->read();
}

void registerFeature(std::string_view name, int defaultValue, bool (*accepts)(int),
                     void (*changed)(int))
{
    SwitchReading facts;
    facts.name = name;
    facts.defaultValue = defaultValue;
    const auto state = std::make_shared<SwitchState>(facts);
    if (accepts)
        state->accepts = accepts;
    if (changed)
        state->changed = changed;
    SwitchRegister::instance().addPlain(state);
}

} // namespace Host
