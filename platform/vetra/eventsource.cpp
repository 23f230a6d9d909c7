#include "vetra/eventsource.h"

namespace Vetra {

EventSource::Watch::Watch(const EventSource* source)
{
    if (!source)
        return;
    auto& life = source->m_own.m_life;
    if (!life)
        life = Holder<Life>(new Life);
    m_life = life;
}

EventSource::~EventSource()
{
    if (m_own.m_life)
        m_own.m_life->isGoingOn = false;
}

} // namespace Vetra
