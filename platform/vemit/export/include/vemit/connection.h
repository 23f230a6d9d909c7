#pragma once

#include "vemit/link.h"

#include <utility>

namespace Vemit {

/// Handle to one connection between an emitter and a callable; empty by default. Copies share the
/// connection. A handle owns neither end, and the connection stays when the last handle goes.
class Connection {
public:
    Connection() noexcept = default;

    /// False once either end has gone, too.
    bool connected() const noexcept { return m_link && m_link->isConnected(); }
    /// From here on the callable gets no further call, not even in an emission under way.
    void disconnect() noexcept
    {
        if (m_link)
            m_link->disconnect(); // Last: it may destroy the callable, and that this handle.
    }
    bool operator==(const Connection& other) const noexcept { return m_link == other.m_link; }

private:
    template <class...>
    friend class Emitter;
    explicit Connection(Detail::LinkPtr link) noexcept : m_link(std::move(link)) {}

    Detail::LinkPtr m_link;
};

} // namespace Vemit
