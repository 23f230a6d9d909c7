#pragma once

#include "vemit/vemit_export.h"

namespace Vemit {

namespace Detail {
class Hub;
class Link;
} // namespace Detail

/// Base of objects that listen: when one dies, its connections end. Copies start without any.
///
/// The base dies last. A class whose own destructor can cause an emission that it listens to calls
/// `disconnectAll` first.
class VEMIT_EXPORT Listener {
public:
    Listener() noexcept = default;
    Listener(const Listener&) noexcept {}
    Listener& operator=(const Listener&) noexcept { return *this; }

    /// Ends every connection of this listener, to all emitters.
    void disconnectAll() noexcept;

protected:
    ~Listener() { disconnectAll(); }

private:
    friend class Detail::Hub;

    Detail::Link* m_first = nullptr;
};

} // namespace Vemit
