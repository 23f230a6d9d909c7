#include "tova/nodes/style/effect.h"

#include <optional>

namespace Tova2 {

struct Effect::Slots {
    std::optional<Shadow> shadow;
    std::optional<Glow> glow;
    std::optional<Overlay> overlay;
    std::optional<Trace> trace;
    std::optional<Squiggly> squiggly;

    bool hasAny() const { return shadow || glow || overlay || trace || squiggly; }
    bool operator==(const Slots&) const = default;
};

namespace {

template <class Record>
void takeOver(std::optional<Record>& slot, const std::optional<Record>& other)
{
    if (other)
        slot = other;
}

template <class Record>
const Record* addressOf(const std::optional<Record>& slot) noexcept
{
    return slot ? &*slot : nullptr;
}

template <class Record>
Effect effectOf(const Record& record)
{
    Effect effect;
    effect.set(record);
    return effect;
}

} // namespace

void Effect::SlotsDeleter::operator()(Slots* slots) const noexcept
{
    delete slots;
}

Effect::SlotsPointer Effect::copySlots(const Slots& slots)
{
    return SlotsPointer(new Slots(slots));
}

Effect::Slots& Effect::slots()
{
    if (!m_slots)
        m_slots.reset(new Slots);
    return *m_slots;
}

void Effect::set(const Shadow& shadow)
{
    slots().shadow = shadow;
    m_slots->shadow->enforceInputValueBoundaries();
}

void Effect::set(const Glow& glow)
{
    slots().glow = glow;
    m_slots->glow->enforceInputValueBoundaries();
}

void Effect::set(const Overlay& overlay)
{
    slots().overlay = overlay;
}

void Effect::set(const Trace& trace)
{
    slots().trace = trace;
}

void Effect::set(const Squiggly& squiggly)
{
    slots().squiggly = squiggly;
}

void Effect::clear(Type type)
{
    if (!m_slots)
        return;
    switch (type) {
    case Type::Shadow:
        m_slots->shadow.reset();
        break;
    case Type::Glow:
        m_slots->glow.reset();
        break;
    case Type::Overlay:
        m_slots->overlay.reset();
        break;
    case Type::Trace:
        m_slots->trace.reset();
        break;
    case Type::Squiggly:
        m_slots->squiggly.reset();
        break;
    case Type::Any:
        break;
    }
    // Equality and `isEmpty` rely on it: no record without an effect in it.
    if (!m_slots->hasAny())
        m_slots.reset();
}

bool Effect::isValid(Type type) const noexcept
{
    switch (type) {
    case Type::Shadow:
        return shadow();
    case Type::Glow:
        return glow();
    case Type::Overlay:
        return overlay();
    case Type::Trace:
        return trace();
    case Type::Squiggly:
        return squiggly();
    case Type::Any:
        return m_slots != nullptr;
    }
    return false;
}

const Effect::Shadow* Effect::shadow() const noexcept
{
    return m_slots ? addressOf(m_slots->shadow) : nullptr;
}

const Effect::Glow* Effect::glow() const noexcept
{
    return m_slots ? addressOf(m_slots->glow) : nullptr;
}

const Effect::Overlay* Effect::overlay() const noexcept
{
    return m_slots ? addressOf(m_slots->overlay) : nullptr;
}

const Effect::Trace* Effect::trace() const noexcept
{
    return m_slots ? addressOf(m_slots->trace) : nullptr;
}

const Effect::Squiggly* Effect::squiggly() const noexcept
{
    return m_slots ? addressOf(m_slots->squiggly) : nullptr;
}

Effect Effect::createEffect(const Shadow& shadow)
{
    return effectOf(shadow);
}

Effect Effect::createEffect(const Glow& glow)
{
    return effectOf(glow);
}

Effect Effect::createEffect(const Overlay& overlay)
{
    return effectOf(overlay);
}

Effect Effect::createEffect(const Trace& trace)
{
    return effectOf(trace);
}

Effect Effect::createEffect(const Squiggly& squiggly)
{
    return effectOf(squiggly);
}

void Effect::combine(const Effect& other)
{
    if (!other.m_slots)
        return;
    auto& mine = slots();
    takeOver(mine.shadow, other.m_slots->shadow);
    takeOver(mine.glow, other.m_slots->glow);
    takeOver(mine.overlay, other.m_slots->overlay);
    takeOver(mine.trace, other.m_slots->trace);
    takeOver(mine.squiggly, other.m_slots->squiggly);
}

bool Effect::equals(const Effect& other) const noexcept
{
    return m_slots && other.m_slots && *m_slots == *other.m_slots;
}

} // namespace Tova2
