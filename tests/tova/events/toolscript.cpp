#include "events/toolscript.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"

#include <algorithm>

namespace ToolScript {

using namespace Tova2;

std::string roleName(int role)
{
    return "R" + std::to_string(role);
}

std::string className(int tool)
{
    return "Scripted<" + std::to_string(tool % kClasses) + ">";
}

std::string messageName(int message)
{
    constexpr const char* names[] = {"AppModelChanged_PreSyncFromRoot",
                                     "AppModelChanged_PostSyncFromRoot", "Other"};
    return names[message];
}

Subject::~Subject() = default;

void Script::play(Subject& subject, int steps)
{
    m_subject = &subject;
    for (int i = 0; i < 4; ++i)
        subject.add(create(), i);
    for (int i = 0; i < steps; ++i) {
        m_log.push_back("step " + std::to_string(i));
        m_budget = 30;
        try {
            if (oneIn(4))
                perform(anyTool(-1), nullptr);
            else
                dispatchNew();
        } catch (const Thrown& thrown) {
            m_log.push_back("thrown " + std::to_string(thrown.number));
        }
        m_log.push_back(subject.dump());
    }
}

void Script::called(int tool, const std::string& how, Event* event)
{
    m_log.push_back("T" + std::to_string(tool) + " " + how);
    if (m_nesting >= 5)
        return;
    ++m_nesting;
    try {
        for (int actions = below(3); actions > 0 && m_budget > 0; --actions, --m_budget)
            act(tool, event);
    } catch (...) {
        --m_nesting;
        throw;
    }
    --m_nesting;
}

void Script::cancelled(int tool, int reason, int cause)
{
    called(tool, "cancel " + std::to_string(reason) + " for " + std::to_string(cause));
    if (!oneIn(8))
        m_subject->setState(tool, oneIn(8) ? State::Done : State::Idle);
}

void Script::asked(int tool)
{
    m_log.push_back("T" + std::to_string(tool) + " cursor");
    if (oneIn(60))
        throw Thrown{m_thrown++};
}

void Script::act(int self, Event* event)
{
    if (oneIn(25))
        throw Thrown{m_thrown++};
    try {
        perform(self, event);
    } catch (const Thrown& thrown) {
        m_log.push_back("caught " + std::to_string(thrown.number));
        if (oneIn(2))
            throw;
    }
}

void Script::perform(int self, Event* event)
{
    switch (below(16)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
        return m_subject->setState(oneIn(5) ? anyTool(self) : self, static_cast<State>(below(5)));
    case 6:
    case 7:
        if (event && oneIn(2))
            event->consume();
        return;
    case 8:
        return dispatchNew();
    case 9:
        return oneIn(2) ? m_subject->cancelAll() : m_subject->send(below(3));
    case 10:
        m_isReadonly = !m_isReadonly;
        return m_subject->setReadonly(m_isReadonly);
    case 11:
        if (event)
            m_subject->delegate(anyTool(self), *event);
        return;
    default:
        return changeStack(self);
    }
}

void Script::changeStack(int self)
{
    const int tool = anyTool(self);
    const int role = below(kRoles);
    switch (below(10)) {
    case 0:
    case 1:
        return m_subject->add(oneIn(2) ? create() : tool, role);
    case 2:
        return m_subject->addBeside(oneIn(2) ? create() : tool, role, oneIn(2));
    case 3:
    case 4:
    case 5:
        return m_subject->move(tool, role, oneIn(2));
    case 6:
    case 7:
        m_log.push_back(m_subject->remove(tool) ? "removed" : "not removed");
        return;
    case 8:
        m_log.push_back(m_subject->removeRole(role) ? "removed" : "not removed");
        return;
    default:
        if (oneIn(3))
            return m_subject->clear();
        if (m_known.size() > 2) {
            const int forgotten = m_known[static_cast<std::size_t>(below(2))];
            std::erase(m_known, forgotten);
            m_subject->drop(forgotten);
        }
    }
}

void Script::dispatchNew()
{
    EventCanvas* const canvas = oneIn(2) ? &m_canvas : nullptr;
    const bool isRepeat = oneIn(3);
    const auto key = oneIn(2) ? Vetra::Key::Escape : Vetra::Key::A;
    if (!oneIn(3)) {
        MouseEvent press(EventType::MousePressEvent, canvas, {}, {}, {}, 0,
                         Vetra::MouseButton::LeftButton, {}, {}, false, true);
        return m_subject->dispatch(press);
    }
    KeyEvent event(oneIn(3) ? EventType::KeyReleaseEvent : EventType::KeyPressEvent, canvas, key,
                   {}, {}, isRepeat);
    m_subject->dispatch(event);
}

int Script::anyTool(int self)
{
    const auto index = static_cast<std::size_t>(below(static_cast<int>(m_known.size()) + 1));
    return index == m_known.size() ? (self < 0 ? m_known.back() : self) : m_known[index];
}

int Script::create()
{
    Traits traits;
    traits.isModifying = oneIn(3);
    traits.isTransparent = oneIn(3);
    traits.wantsRepeats = oneIn(2);
    traits.scrollType = below(2);
    if (oneIn(2))
        traits.cursor = below(20);
    m_known.push_back(m_created);
    m_subject->create(m_created, traits);
    return m_created++;
}

} // namespace ToolScript
