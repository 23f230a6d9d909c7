#pragma once

#include "vemit/vemit_export.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace Vemit {

class Listener;

namespace Detail {

class Hub;

template <class T>
constexpr bool travelsInRegisters()
{
    if constexpr (std::is_reference_v<T>) // of a type that may be incomplete
        return true;
    else
        return std::is_trivially_copyable_v<T> && sizeof(T) <= 2 * sizeof(void*);
}

/// How an argument travels through the calls: references and small values as they are, the rest by
/// reference.
template <class T>
using Parameter = std::conditional_t<travelsInRegisters<T>(), T, const T&>;

template <class F, class... Args>
concept Callback =
    std::is_invocable_v<std::add_lvalue_reference_t<std::decay_t<F>>, Parameter<Args>...>;

/// A callback of its own, or a member function of `T`.
template <class F, class T, class... Args>
concept CallbackOf =
    Callback<F, Args...> || std::is_invocable_v<std::decay_t<F>, T*, Parameter<Args>...>;

/// One connection. The hub holds a reference while it lasts, every `Connection` another one; what
/// it calls is destroyed with the connection, not with the last handle.
class VEMIT_EXPORT Link {
public:
    Link() = default;
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    bool isConnected() const noexcept { return m_hub != nullptr; }
    void disconnect() noexcept;

protected:
    virtual ~Link();

private:
    friend class Hub;
    friend void intrusive_ptr_add_ref(Link* link) noexcept { ++link->m_references; }
    friend void intrusive_ptr_release(Link* link) noexcept
    {
        if (--link->m_references == 0)
            delete link;
    }

    virtual void destroyCallable() noexcept = 0;
    void joinList(Link*& first) noexcept;
    void leaveList() noexcept;

    Hub* m_hub = nullptr;                 ///< null once disconnected
    const Listener* m_listener = nullptr; ///< to tell whose it is, never followed
    Link** m_place = nullptr;             ///< what points to this link in its listener's list
    Link* m_next = nullptr; ///< in the listener's list, then in the hub's list of the dead
    std::uint32_t m_index = 0;
    std::uint32_t m_references = 0;
};

using LinkPtr = boost::intrusive_ptr<Link>;

/// A member function and its object.
template <class T, class M>
struct MemberCall {
    T* object;
    M function;

    template <class... Args>
    void operator()(Args&&... args) const
    {
        (object->*function)(std::forward<Args>(args)...);
    }
};

template <class F>
inline constexpr bool isFunction = false;
template <class S>
inline constexpr bool isFunction<std::function<S>> = true;

/// A link and what it calls, in one allocation.
template <class F, class... Args>
class CallableLink final : public Link {
public:
    template <class G>
    explicit CallableLink(std::in_place_t, G&& callable) : m_callable(std::forward<G>(callable))
    {}

    static void invoke(Link& link, Parameter<Args>... args)
    {
        std::invoke(*static_cast<CallableLink&>(link).m_callable,
                    std::forward<Parameter<Args>>(args)...);
    }

private:
    void destroyCallable() noexcept override { m_callable.reset(); }

    std::optional<F> m_callable;
};

} // namespace Detail

} // namespace Vemit
