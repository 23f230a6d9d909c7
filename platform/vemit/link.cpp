#include "vemit/link.h"

#include "vemit/hub.h"

namespace Vemit::Detail {

Link::~Link() = default;

void Link::disconnect() noexcept
{
    if (m_hub)
        m_hub->remove(*this);
}

void Link::joinList(Link*& first) noexcept
{
    m_place = &first;
    m_next = first;
    if (m_next)
        m_next->m_place = &m_next;
    first = this;
}

void Link::leaveList() noexcept
{
    if (!m_place)
        return;
    *m_place = m_next;
    if (m_next)
        m_next->m_place = m_place;
    m_place = nullptr;
    m_next = nullptr;
}

} // namespace Vemit::Detail
