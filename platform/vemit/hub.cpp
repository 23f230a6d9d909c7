#include "vemit/hub.h"

#include "vemit/listener.h"

#include <cassert>
#include <utility>

namespace Vemit {

Packet::~Packet() = default;

namespace Detail {

void Hub::connect(Word& word, Link& link, Invoke invoke, Listener* listener)
{
    if (Hub* hub = of(word))
        return hub->add(link, invoke, listener);
    auto hub = std::make_unique<Hub>(word);
    hub->add(link, invoke, listener);
    word |= reinterpret_cast<Word>(hub.release());
}

void Hub::add(Link& link, Invoke invoke, Listener* listener)
{
    m_entries.push_back({invoke, &link});
    intrusive_ptr_add_ref(&link);
    link.m_hub = this;
    link.m_index = static_cast<std::uint32_t>(m_entries.size() - 1);
    link.m_listener = listener;
    if (listener)
        link.joinList(listener->m_first);
    ++m_live;
}

void Hub::remove(Link& link) noexcept
{
    detach(link);
    if (m_depth == 0)
        settle();
}

void Hub::removeAll(const Listener* listener) noexcept
{
    for (const Entry& entry : m_entries) {
        if (entry.invoke && (!listener || entry.link->m_listener == listener))
            detach(*entry.link);
    }
    if (m_depth == 0 && m_dead)
        settle();
}

void Hub::close() noexcept
{
    *m_word &= modeMask;
    m_word = nullptr;
    removeAll(nullptr);
}

void Hub::wait(std::unique_ptr<Packet> packet)
{
    if (!m_waiting)
        m_waiting = std::make_unique<std::deque<std::unique_ptr<Packet>>>();
    m_waiting->push_back(std::move(packet));
}

void Hub::deliverWaiting(std::size_t limit)
{
    const Walk walk(*this);
    for (; limit > 0 && waitingCount() != 0; --limit) {
        const std::unique_ptr<Packet> packet = std::move(m_waiting->front());
        m_waiting->pop_front();
        packet->deliver(*this);
    }
}

void Hub::detach(Link& link) noexcept
{
    m_entries[link.m_index] = {};
    link.leaveList();
    link.m_hub = nullptr;
    link.m_next = std::exchange(m_dead, &link);
    --m_live;
}

/// Takes the dead away first: what happens in their destructors waits its turn, on a whole hub or
/// on none.
void Hub::settle() noexcept
{
    assert(m_depth == 0 && (m_word || m_live == 0));
    Link* dead = std::exchange(m_dead, nullptr);
    if (m_live == 0) {
        if (m_word)
            *m_word &= modeMask;
        delete this;
    } else if (m_live <= m_entries.size() / 2) {
        compact();
    }
    while (dead) {
        Link* const link = std::exchange(dead, dead->m_next);
        link->destroyCallable();
        intrusive_ptr_release(link);
    }
}

void Hub::compact() noexcept
{
    std::uint32_t live = 0;
    for (const Entry& entry : m_entries) {
        if (!entry.invoke)
            continue;
        entry.link->m_index = live;
        m_entries[live++] = entry;
    }
    m_entries.resize(live);
    assert(live == m_live);
}

} // namespace Detail

} // namespace Vemit
