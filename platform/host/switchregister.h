#pragma once

#include "host/featureregistry.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

namespace Host {

/// A switch, held by its owner and by whoever calls it back just now: a callback may destroy it.
struct SwitchState {
    explicit SwitchState(SwitchReading known) : facts(std::move(known)), value(facts.defaultValue)
    {}

    // Relaxed: a figure to read, not a signal between threads.
    int read() noexcept
    {
        reads.fetch_add(1, std::memory_order_relaxed);
        return value.load(std::memory_order_relaxed);
    }
    SwitchReading reading() const;
    void set(int newValue);

    const SwitchReading facts; // the value and the reads in it stand still
    std::function<bool(int)> accepts;
    std::function<void(int)> changed;
    std::atomic<int> value;
    std::atomic<std::int64_t> reads{0};
    bool isTelling = false;
};

/// Which switches there are, oldest first.
class SwitchRegister {
public:
    using States = std::vector<std::shared_ptr<SwitchState>>;

    static SwitchRegister& instance();

    void add(const std::shared_ptr<SwitchState>& state);
    void addPlain(const std::shared_ptr<SwitchState>& state);
    void remove(const SwitchState& state);
    States all() const;
    States named(std::string_view name) const;

private:
    mutable std::mutex m_mutex;
    States m_states;
};

} // namespace Host
