#pragma once

#include "vemit/connection.h"
#include "vemit/hub.h"
#include "vemit/listener.h"
#include "vemit/modes.h"

#include <concepts>
#include <limits>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

namespace Vemit {

/// Source of messages with the arguments `Args`, which listeners hear in the order of connection.
/// One word large; it allocates only while somebody listens. All in one thread, which is the one of
/// the listeners, too.
///
/// A callback may do anything: send, connect, disconnect, destroy listeners or this emitter.
///  - An emission goes to those connected when its delivery begins.
///  - Who is disconnected meanwhile gets no further call. What it called is destroyed when the
///    delivery has ended, since it may be running.
///  - Destroying the emitter ends the emission, and drops those that wait.
///  - An exception ends its emission and reaches the caller of `send` or `flush`. Packets behind it
///    still wait; they go out ahead of the next emission, or with `flush`.
///
/// An emitter whose arguments have no copy, or that are references to be written to, cannot wait:
/// it sends as in `SendMode::Immediate`, whatever its mode.
template <class... Args>
class Emitter {
    static_assert(!(std::is_rvalue_reference_v<Args> || ...), "only one listener could take it");

public:
    Emitter() noexcept : Emitter(SendMode::Immediate) {}
    /// Values that are none of the enumerators count as `Immediate` and `Never`.
    explicit Emitter(SendMode send, DropMode drop = DropMode::Never) noexcept
        : m_word(wordOf(send, drop))
    {}
    Emitter(const Emitter&) = delete;
    Emitter& operator=(const Emitter&) = delete;
    ~Emitter()
    {
        // Destroying what was connected may connect anew.
        while (Detail::Hub* hub = Detail::Hub::of(m_word))
            hub->close();
    }

    SendMode sendMode() const noexcept { return static_cast<SendMode>(m_word & 3); }
    DropMode dropMode() const noexcept { return static_cast<DropMode>(m_word >> 2 & 1); }

    /// Calls `callable(args...)`, until either end disconnects or the emitter dies. A null function
    /// is not connected: the handle is empty.
    template <class F>
    Connection connect(F&& callable)
    {
        static_assert(Detail::Callback<F, Args...>,
                      "connect: the callback has to take what the emitter sends, argument for "
                      "argument; `auto&&` takes one that does not matter");
        if constexpr (!Detail::Callback<F, Args...>)
            return {};
        else
            return isNull(callable) ? Connection() : add(std::forward<F>(callable), nullptr);
    }

    /// The same, ending as well when `listener` dies. `callable` is one of its member functions or
    /// anything that takes the arguments. A null listener is not connected.
    template <class T, class F>
    Connection connect(T* listener, F&& callable)
    {
        static_assert(std::derived_from<T, Listener>,
                      "connect: the listener has to derive from Vemit::Listener");
        static_assert(Detail::CallbackOf<F, T, Args...>,
                      "connect: the callback, or the listener's member function, has to take what "
                      "the emitter sends, argument for argument; `auto&&` takes one that does not "
                      "matter");
        constexpr bool isFine = std::derived_from<T, Listener> && Detail::CallbackOf<F, T, Args...>;
        if constexpr (!isFine)
            return {};
        else if (!listener || isNull(callable))
            return {};
        else if constexpr (std::is_member_pointer_v<std::decay_t<F>>)
            return add(Detail::MemberCall<T, std::decay_t<F>>{listener, callable}, listener);
        else
            return add(std::forward<F>(callable), listener);
    }

    /// Ends all connections of `listener` to this emitter; null and strangers do no harm.
    void disconnect(const Listener* listener) noexcept
    {
        if (Detail::Hub* hub = Detail::Hub::of(m_word); hub && listener)
            hub->removeAll(listener);
    }
    void disconnectAll() noexcept
    {
        if (Detail::Hub* hub = Detail::Hub::of(m_word))
            hub->removeAll(nullptr);
    }
    std::size_t listenerCount() const noexcept
    {
        const Detail::Hub* hub = Detail::Hub::of(m_word);
        return hub ? hub->listenerCount() : 0;
    }
    bool hasListeners() const noexcept { return listenerCount() != 0; }

    /// Emits. The modes say when it is delivered, and whether at all.
    void send(Detail::Parameter<Args>... args)
    {
        if (m_word <= Detail::Hub::modeMask)
            return;
        Detail::Hub& hub = *Detail::Hub::of(m_word);
        if ((m_word & Detail::Hub::modeMask) == wordOf(SendMode::Immediate, DropMode::Never))
            deliver(hub, args...);
        else
            sendByMode(hub, args...);
    }

    /// Delivers the emissions that wait now; those made meanwhile in `SendMode::Held` wait for the
    /// next time. Does nothing inside a callback of this emitter.
    void flush()
    {
        if (Detail::Hub* hub = Detail::Hub::of(m_word); hub && !hub->isDelivering())
            hub->deliverWaiting(sendMode() == SendMode::Held ? hub->waitingCount() : noLimit);
    }

private:
    using Call = void (*)(Detail::Link&, Detail::Parameter<Args>...);
    static constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();

    class ArgumentPacket final : public Packet {
    public:
        explicit ArgumentPacket(Detail::Parameter<Args>... args) : m_payload(args...) {}
        void deliver(Detail::Hub& hub) override
        {
            std::apply([&hub](const auto&... args) { Emitter::deliver(hub, args...); }, m_payload);
        }

    private:
        Payload<Args...> m_payload;
    };

    static constexpr Detail::Hub::Word wordOf(SendMode send, DropMode drop) noexcept
    {
        const auto valid = send > SendMode::Immediate ? SendMode::Immediate : send;
        return static_cast<Detail::Hub::Word>(valid) | (drop == DropMode::WhileBusy ? 4U : 0U);
    }

    template <class F>
    static bool isNull(const F& callable) noexcept
    {
        using D = std::decay_t<F>;
        if constexpr (std::is_member_pointer_v<D> || std::is_pointer_v<F> || Detail::isFunction<D>)
            return callable == nullptr;
        else
            return false;
    }

    template <class F>
    Connection add(F&& callable, Listener* listener)
    {
        using Bound = Detail::CallableLink<std::decay_t<F>, Args...>;
        Detail::LinkPtr link(new Bound(std::in_place, std::forward<F>(callable)));
        Detail::Hub::connect(m_word, *link, reinterpret_cast<Detail::Hub::Invoke>(&Bound::invoke),
                             listener);
        return Connection(std::move(link));
    }

    // Static: a callback may have destroyed the emitter.
    static void deliver(Detail::Hub& hub, Detail::Parameter<Args>... args)
    {
        const Detail::Hub::Walk walk(hub);
        for (std::size_t i = 0, end = hub.entryCount(); i < end; ++i) {
            const Detail::Hub::Entry entry = hub.entry(i);
            if (entry.invoke)
                reinterpret_cast<Call>(entry.invoke)(*entry.link, args...);
        }
    }

    void sendByMode(Detail::Hub& hub, Detail::Parameter<Args>... args)
    {
        if (dropMode() == DropMode::WhileBusy && hub.isBusy())
            return;
        if constexpr ((Detail::canWait<Args> && ...)) {
            if (sendMode() != SendMode::Immediate)
                return sendWaiting(hub, args...);
        }
        deliver(hub, args...);
    }

    void sendWaiting(Detail::Hub& hub, Detail::Parameter<Args>... args)
    {
        const bool held = sendMode() == SendMode::Held;
        const bool nested = hub.isDelivering();
        const Detail::Hub::Walk walk(hub);
        if (held || nested || hub.waitingCount() != 0)
            hub.wait(std::make_unique<ArgumentPacket>(args...));
        else
            deliver(hub, args...);
        if (!held && !nested)
            hub.deliverWaiting(noLimit);
    }

    Detail::Hub::Word m_word;
};

} // namespace Vemit
