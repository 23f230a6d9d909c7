#pragma once

#include "vemit/link.h"
#include "vemit/packet.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace Vemit::Detail {

/// What an emitter owns while it has listeners. It outlives the emitter when that is destroyed by
/// one of its own callbacks.
///
/// A removed entry is blanked, never moved while a walk is on the stack; what it called stays alive
/// until the outermost walk ends, since it may be running. Code of the user (the destructor of a
/// callable or of a packet) runs only where the hub is consistent and not touched any more.
class VEMIT_EXPORT Hub {
public:
    /// A `void (*)(Link&, Parameter<Args>...)` with its type erased.
    using Invoke = void (*)();
    struct Entry {
        Invoke invoke = nullptr; ///< null when disconnected
        Link* link = nullptr;
    };

    // The emitter's only word: address of its hub, or 0 while nobody listens, and
    //   bits 0 to 1   SendMode
    //   bit  2        DropMode
    using Word = std::uintptr_t;
    static constexpr Word modeMask = 7;

    /// Keeps the hub and every callable alive while callbacks run.
    class Walk {
    public:
        explicit Walk(Hub& hub) noexcept : m_hub(hub) { ++m_hub.m_depth; }
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;
        ~Walk()
        {
            if (--m_hub.m_depth == 0 && m_hub.m_dead)
                m_hub.settle();
        }

    private:
        Hub& m_hub;
    };

    explicit Hub(Word& word) noexcept : m_word(&word) {}
    Hub(const Hub&) = delete;
    Hub& operator=(const Hub&) = delete;

    static Hub* of(Word word) noexcept { return reinterpret_cast<Hub*>(word & ~modeMask); }
    /// Adds `link` at the end, making the hub if there is none; `listener` may be null.
    /// Strong guarantee.
    static void connect(Word& word, Link& link, Invoke invoke, Listener* listener);

    void remove(Link& link) noexcept;
    void removeAll(const Listener* listener) noexcept; ///< null: of every listener, and of none
    void close() noexcept;                             ///< The emitter goes.

    std::size_t listenerCount() const noexcept { return m_live; }
    std::size_t entryCount() const noexcept { return m_entries.size(); }
    Entry entry(std::size_t index) const noexcept { return m_entries[index]; }

    bool isDelivering() const noexcept { return m_depth != 0; }
    bool isBusy() const noexcept { return isDelivering() || waitingCount() != 0; }
    std::size_t waitingCount() const noexcept { return m_waiting ? m_waiting->size() : 0; }
    void wait(std::unique_ptr<Packet> packet);
    /// Delivers up to `limit` waiting packets, oldest first. After an exception the rest still
    /// waits.
    void deliverWaiting(std::size_t limit);

private:
    void add(Link& link, Invoke invoke, Listener* listener);
    void detach(Link& link) noexcept;
    void settle() noexcept;
    void compact() noexcept;

    std::vector<Entry> m_entries; // in the order of connection
    Word* m_word;                 // null when the emitter has gone
    Link* m_dead = nullptr;       // disconnected, callables not yet destroyed
    std::unique_ptr<std::deque<std::unique_ptr<Packet>>> m_waiting;
    std::uint32_t m_live = 0;
    std::uint32_t m_depth = 0;
};

} // namespace Vemit::Detail
