#include "vemit/listener.h"

#include "vemit/link.h"

namespace Vemit {

void Listener::disconnectAll() noexcept
{
    // From the head each time: destroying a callable may end other connections of ours.
    while (m_first)
        m_first->disconnect();
}

} // namespace Vemit
