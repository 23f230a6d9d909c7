#include "events/referencestack.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/keyevent.h"

#include <algorithm>

namespace ToolScript {

using namespace Tova2;

namespace {

/// Higher by one until the block ends.
struct Raised {
    explicit Raised(int& count) : m_count(count) { ++m_count; }
    ~Raised() { --m_count; }
    int& m_count;
};

std::string nameOf(State state)
{
    constexpr const char* names[] = {"idle", "alert", "active", "deferred active", "done"};
    return names[static_cast<int>(state)];
}

} // namespace

bool ReferenceStack::Calls::make(const std::function<void()>& call)
{
    try {
        call();
        return true;
    } catch (const Thrown&) {
        if (!first)
            first = std::current_exception();
        return false;
    }
}

void ReferenceStack::Calls::end() const
{
    if (first)
        std::rethrow_exception(first);
}

void ReferenceStack::walk(const std::function<bool(int)>& visit)
{
    int last = -1;
    for (;;) {
        int index = last < 0 ? 0 : indexOf([&](const Place& p) { return p.number == last; }) + 1;
        const int end = static_cast<int>(m_places.size());
        while (index < end && m_places[static_cast<std::size_t>(index)].isGone)
            ++index;
        if (index == end)
            return;
        const Place place = m_places[static_cast<std::size_t>(index)];
        last = place.number;
        if (!visit(place.tool))
            return;
    }
}

int ReferenceStack::indexOf(const std::function<bool(const Place&)>& condition) const
{
    const auto found = std::find_if(m_places.begin(), m_places.end(), condition);
    return found == m_places.end() ? -1 : static_cast<int>(found - m_places.begin());
}

int ReferenceStack::indexOfTool(int tool) const
{
    return indexOf([tool](const Place& place) { return place.tool == tool && !place.isGone; });
}

int ReferenceStack::indexOfRole(int role) const
{
    return indexOf([role](const Place& place) { return place.role == role && !place.isGone; });
}

void ReferenceStack::insert(int index, int tool, int role)
{
    const int old = indexOfTool(tool);
    if (old >= 0)
        m_places[static_cast<std::size_t>(old)].isGone = true;
    m_places.insert(m_places.begin() + index, Place{m_numbers++, tool, role});
}

void ReferenceStack::create(int, const Traits& traits)
{
    m_players.push_back(Player{traits});
}

void ReferenceStack::add(int tool, int role)
{
    const Raised operation(m_operations);
    Calls calls;
    removeDone(calls);
    const int taken = indexOfRole(role);
    const int holder = taken < 0 ? -1 : m_places[static_cast<std::size_t>(taken)].tool;
    if (holder == tool)
        return calls.end();
    if (holder >= 0) {
        if (player(holder).phase == Phase::In) {
            player(holder).phase = Phase::Cancelled;
            calls.make([&] { m_script.cancelled(holder, 4, -1); });
        }
        if (player(holder).isListed && player(holder).phase != Phase::In)
            calls.make([&] { takeLeave(holder); });
    }
    calls.make([&] {
        const int index = indexOfRole(role);
        const int now = index < 0 ? -1 : m_places[static_cast<std::size_t>(index)].tool;
        if (now == tool || (now >= 0 && player(now).isHeard))
            return;
        insert(std::max(index, 0), tool, role);
        if (now >= 0)
            leave(now);
        if (player(tool).isListed)
            return;
        player(tool).isListed = player(tool).isHeard = true;
        player(tool).phase = Phase::In;
        m_script.called(tool, "added");
    });
    finish(calls);
}

void ReferenceStack::addBeside(int tool, int role, bool isAbove)
{
    const Raised operation(m_operations);
    Calls calls;
    calls.make([&] { add(tool, tool % kRoles); });
    move(tool, role, isAbove);
    finish(calls);
}

void ReferenceStack::move(int tool, int role, bool isAbove)
{
    const int reference = indexOfRole(role);
    const int moved = indexOfTool(tool);
    if (reference < 0 || moved < 0 || reference == moved)
        return;
    const int own = m_places[static_cast<std::size_t>(moved)].role;
    insert(isAbove ? reference : reference + 1, tool, own);
}

bool ReferenceStack::remove(int tool)
{
    if (tool < 0 || !player(tool).isListed || player(tool).phase != Phase::In)
        return false;
    const Raised operation(m_operations);
    Calls calls;
    player(tool).phase = Phase::Cancelled;
    calls.make([&] { m_script.cancelled(tool, 4, -1); });
    if (player(tool).isListed && player(tool).phase == Phase::Cancelled) {
        leave(tool);
        calls.make([&] { m_script.called(tool, "removed"); });
    }
    finish(calls);
    return true;
}

bool ReferenceStack::removeRole(int role)
{
    const int index = indexOfRole(role);
    return index >= 0 && remove(m_places[static_cast<std::size_t>(index)].tool);
}

void ReferenceStack::clear()
{
    const Raised operation(m_operations);
    Calls calls;
    forgetActive(m_active);
    walk([&](int tool) {
        calls.make([&] { takeLeave(tool); });
        if (player(tool).isListed && player(tool).phase == Phase::Leaving)
            leave(tool);
        return true;
    });
    finish(calls);
}

/// The last the tool hears; its place is still there.
void ReferenceStack::takeLeave(int tool)
{
    if (player(tool).phase == Phase::Leaving)
        return;
    player(tool).phase = Phase::Leaving;
    player(tool).isHeard = false;
    forgetActive(tool);
    m_script.called(tool, "removed");
}

void ReferenceStack::leave(int tool)
{
    forgetActive(tool);
    m_places[static_cast<std::size_t>(indexOfTool(tool))].isGone = true;
    player(tool).isListed = player(tool).isHeard = false;
    player(tool).phase = Phase::Out;
    if (m_cursor.from == tool) {
        m_cursor = {};
        m_isCursorLost = true;
    }
}

void ReferenceStack::removeDone(Calls& calls)
{
    if (m_depth > 0)
        return;
    walk([&](int tool) {
        if (player(tool).state != State::Done || player(tool).phase == Phase::Leaving)
            return true;
        calls.make([&] { takeLeave(tool); });
        if (player(tool).isListed && player(tool).phase == Phase::Leaving)
            leave(tool);
        return true;
    });
}

void ReferenceStack::finish(Calls& calls)
{
    if (m_isCursorLost && m_operations == 1)
        calls.make([this] { recomputeCursor(); });
    calls.end();
}

void ReferenceStack::setState(int tool, State state)
{
    const State old = player(tool).state;
    const bool isRefused = m_cancelWalks == 3 || (m_claimant >= 0 && m_claimant != tool);
    if (state == old || (state == State::Active && player(tool).isHeard && isRefused))
        return;
    player(tool).state = state;
    if (!player(tool).isHeard)
        return;
    const Raised operation(m_operations);
    Calls calls;
    if (old == State::Active && m_active == tool) {
        m_active = -1;
        if (player(tool).traits.scrollType != 0)
            line("scroll stop");
    }
    if (state == State::Active)
        calls.make([&] { nowActive(tool); });
    finish(calls);
}

void ReferenceStack::nowActive(int tool)
{
    Calls calls;
    const int outer = std::exchange(m_claimant, tool);
    cancelWalk(tool, 1, calls);
    m_claimant = outer;
    if (player(tool).state == State::Active && player(tool).isHeard) {
        line("scroll start " + std::to_string(player(tool).traits.scrollType));
        m_active = tool;
        m_hasActivated = true;
        ++m_activations;
    }
    calls.end();
}

void ReferenceStack::forgetActive(int tool)
{
    if (m_active >= 0 && m_active == tool) {
        m_active = -1;
        line("scroll stop");
    }
}

void ReferenceStack::cancelAll()
{
    Calls calls;
    cancelWalk(-1, 5, calls);
    calls.end();
}

int ReferenceStack::cancelWalk(int exempt, int reason, Calls& calls)
{
    if (m_cancelWalks == 3)
        return 0;
    const Raised operation(m_operations);
    int result = 0;
    {
        const Raised depth(m_depth);
        const Raised walks(m_cancelWalks);
        walk([&](int tool) {
            if (tool == exempt)
                return true;
            if (player(tool).state == State::Active || player(tool).state == State::Alert)
                result = std::max(result, player(tool).traits.isTransparent ? 1 : 2);
            calls.make([&] { m_script.cancelled(tool, reason, exempt); });
            if (reason == 1 && player(tool).isListed && player(tool).state == State::Active)
                calls.make([&] { setState(tool, State::Idle); });
            return true;
        });
    }
    removeDone(calls);
    calls.make([this] { recomputeCursor(); });
    return result;
}

void ReferenceStack::setReadonly(bool isReadonly)
{
    if (isReadonly == m_isReadonly)
        return;
    m_isReadonly = isReadonly;
    if (m_active < 0 || !isShutOut(m_active))
        return;
    const Raised operation(m_operations);
    Calls calls;
    {
        const Raised depth(m_depth);
        calls.make([this] { m_script.cancelled(m_active, 5, -1); });
    }
    removeDone(calls);
    calls.make([this] { recomputeCursor(); });
    finish(calls);
}

bool ReferenceStack::isShutOut(int tool)
{
    return m_isReadonly && player(tool).traits.isModifying;
}

void ReferenceStack::collectCursor(int tool)
{
    if (m_cursor.shape || !player(tool).isListed || player(tool).state == State::Done)
        return;
    m_script.asked(tool);
    if (player(tool).traits.cursor)
        m_cursor = {player(tool).traits.cursor, tool};
}

void ReferenceStack::recomputeCursor()
{
    m_cursor = {};
    m_isCursorLost = false;
    Calls calls;
    if (m_active >= 0)
        calls.make([this] { collectCursor(m_active); });
    walk([&](int tool) {
        if (!m_cursor.shape && !isShutOut(tool))
            calls.make([&] { collectCursor(tool); });
        return true;
    });
    applyCursor();
    calls.end();
}

void ReferenceStack::applyCursor()
{
    line(m_cursor.shape ? "show " + std::to_string(*m_cursor.shape) : "restore");
}

void ReferenceStack::delegate(int tool, Event& event)
{
    const Raised operation(m_operations);
    const bool wasListed = player(tool).isListed;
    Calls calls;
    calls.make([&] {
        handle(tool, event);
        if (wasListed && !player(tool).isListed) {
            m_cursor = {};
            return;
        }
        m_script.asked(tool);
        m_cursor = {player(tool).traits.cursor, player(tool).isListed ? tool : -1};
    });
    finish(calls);
}

void ReferenceStack::dispatch(Event& event)
{
    const auto* key = dynamic_cast<KeyEvent*>(&event);
    const bool isRepeat = key && key->isAutoRepeat();
    if (!key || event.type() == EventType::KeyReleaseEvent) {
        if (key && key->key() == Vetra::Key::Escape && std::exchange(m_hasSwallowed, false))
            return event.consume();
        return offerEverywhere(event, isRepeat);
    }
    const Raised operation(m_operations);
    Calls calls;
    if (key->key() == Vetra::Key::Escape && cancelWalk(-1, 0, calls) == 2) {
        event.consume();
        m_hasSwallowed = true;
    }
    if (!event.isConsumed())
        calls.make([&] { offerEverywhere(event, isRepeat); });
    finish(calls);
}

void ReferenceStack::offerEverywhere(Event& event, bool isRepeat)
{
    if (indexOf([](const Place& place) { return !place.isGone; }) < 0)
        return;
    const Raised operation(m_operations);
    line("Dispatching " + std::string(event.className()) + ":" + debugText(event));
    Calls calls;
    const bool outerActivated = std::exchange(m_hasActivated, false);
    const int activations = m_activations;
    const Cursor outerCursor = std::exchange(m_cursor, {});
    ++m_dispatches;

    removeDone(calls);
    bool isGoingOn = true;
    {
        const Raised depth(m_depth);
        if (m_active >= 0)
            offerToActive(event, isRepeat, calls);
        walk([&](int tool) {
            isGoingOn =
                isGoingOn && !event.isConsumed() && offer(tool, event, isRepeat, false, calls);
            return isGoingOn;
        });
    }
    if (m_active < 0 && (isGoingOn || event.isConsumed())) {
        walk([&](int tool) {
            if (event.isConsumed())
                return false;
            return player(tool).state != State::DeferredActive ||
                   offer(tool, event, isRepeat, true, calls);
        });
    }
    removeDone(calls);
    if (m_active < 0 && event.canvas())
        line("interaction off");
    applyCursor();

    if (--m_dispatches > 0) {
        const bool isLost = outerCursor.from >= 0 && !player(outerCursor.from).isListed;
        m_cursor = isLost ? Cursor() : outerCursor;
    } else {
        m_isCursorLost = false;
    }
    m_hasActivated = outerActivated || m_activations != activations;
    line("Finished dispatching " + std::string(event.className()));
    calls.end();
}

void ReferenceStack::offerToActive(Event& event, bool isRepeat, Calls& calls)
{
    const int tool = m_active;
    const State before = player(tool).state;
    std::string text = "    Skipping modifying tool (" + className(tool) + ") in readonly mode";
    if (!isShutOut(tool)) {
        text = "    Handling with active tool (" + className(tool) + ")";
        tryTool(tool, event, isRepeat, false, text, calls);
    }
    event.consume();
    if (player(tool).state != before)
        text += ", tool became " + nameOf(player(tool).state);
    line(text);
}

bool ReferenceStack::offer(int tool, Event& event, bool isRepeat, bool isDeferred, Calls& calls)
{
    const std::string kind = isDeferred ? "deferred active " : "";
    if (isShutOut(tool)) {
        line("    Skipping " + kind + "modifying tool (" + className(tool) + ") in readonly mode");
        return true;
    }
    const State before = player(tool).state;
    std::string text =
        "    Trying " + kind + "tool (" + className(tool) + "), was " + nameOf(before);
    const bool isFine = tryTool(tool, event, isRepeat, isDeferred, text, calls);
    const State now = player(tool).state;
    text += now == before ? ", state did not change" : ", became " + nameOf(now);
    if (m_hasActivated)
        text += isDeferred ? " (a tool activated during deferred activation handling)"
                           : " (a tool activated during handling)";
    line(text);
    return isFine;
}

bool ReferenceStack::tryTool(int tool, Event& event, bool isRepeat, bool isDeferred,
                             std::string& text, Calls& calls)
{
    const bool isFine = calls.make([&] {
        if (player(tool).state == State::Done) {
            text += " [dropped; tool done]";
        } else if (isRepeat && !player(tool).traits.wantsRepeats) {
            text += " [dropped; tool ignores key repeat events]";
        } else if (isDeferred) {
            m_script.called(tool, "deferred", &event);
            setState(tool, State::Active);
        } else {
            m_hasActivated = false;
            handle(tool, event);
        }
        collectCursor(tool);
    });
    if (!isFine)
        text += " [threw an exception]";
    return isFine;
}

void ReferenceStack::handle(int tool, Event& event)
{
    if (event.isConsumed())
        return;
    const auto type = event.type();
    m_script.called(tool,
                    type == EventType::MousePressEvent ? "press"
                    : type == EventType::KeyPressEvent ? "key"
                                                       : "key up",
                    &event);
}

void ReferenceStack::send(int message)
{
    const Raised operation(m_operations);
    line("Sending message " + messageName(message));
    Calls calls;
    const bool outerActivated = std::exchange(m_hasActivated, false);
    const int activations = m_activations;
    {
        const Raised depth(m_depth);
        const auto deliver = [&](int tool, bool isFirst) {
            const State before = player(tool).state;
            std::string text = isFirst ? "    Handling with active tool (" : "    Trying tool (";
            text += className(tool) + (isFirst ? ")" : "), was " + nameOf(before));
            m_hasActivated = false;
            if (!calls.make([&] { receive(tool, message); }))
                text += " [threw an exception]";
            const State now = player(tool).state;
            if (isFirst)
                text += now == before ? "" : ", tool became " + nameOf(now);
            else
                text += now == before ? ", state did not change" : ", became " + nameOf(now);
            if (!isFirst && m_hasActivated)
                text += " (a tool activated during handling)";
            line(text);
            return true;
        };
        if (m_active >= 0)
            deliver(m_active, true);
        walk([&](int tool) { return deliver(tool, false); });
    }
    m_hasActivated = outerActivated || m_activations != activations;
    removeDone(calls);
    calls.make([this] { recomputeCursor(); });
    calls.end();
}

void ReferenceStack::receive(int tool, int message)
{
    m_script.called(tool, "message");
    if (message > 1)
        return;
    m_script.called(tool, "phase " + std::to_string(message));
    if (message == 0)
        m_script.cancelled(tool, 3, -1);
}

std::string ReferenceStack::dump()
{
    std::string text = "tools";
    bool isEngaged = false;
    for (const Place& place : m_places) {
        if (place.isGone)
            continue;
        const State state = player(place.tool).state;
        text +=
            " T" + std::to_string(place.tool) + ":" + roleName(place.role) + ":" + nameOf(state);
        isEngaged = isEngaged || (state != State::Idle && state != State::Done);
    }
    return text + ", active " + std::to_string(m_active) + (isEngaged ? ", engaged" : "") +
           ", cursor " + (m_cursor.shape ? std::to_string(*m_cursor.shape) : "none");
}

} // namespace ToolScript
