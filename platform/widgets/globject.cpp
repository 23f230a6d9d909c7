#include "widgets/globject.h"

#include "vetra/errorreporter.h"

#include <cstring>
#include <exception>

namespace Widgets {

GLObject::Use::Use(GLObject& object) : m_life(object.m_life)
{
    ++m_life->uses;
}

GLObject::Use::~Use()
{
    if (--m_life->uses == 0 && m_life->object && m_life->object->m_stage == Stage::Ended)
        m_life->object->doDelete();
}

GLObject::GLObject(const Vetra::StringID& name, GLObject* parent)
    : m_name(name), m_parent(parent && !parent->hasEnded() ? parent : nullptr), m_life(new Life)
{
    m_life->object = this;
    if (m_parent)
        m_parent->m_children.push_back(this);
}

GLObject::~GLObject()
{
    if (m_stage == Stage::Alive)
        end();
    m_life->object = nullptr;
}

void GLObject::destroy()
{
    if (m_stage != Stage::Alive)
        return;
    end();
    doDelete();
}

void GLObject::doDelete()
{
    if (m_stage == Stage::Alive)
        destroy();
    else if (m_stage == Stage::Ended && !isInUse())
        delete this;
}

bool GLObject::isa(const char* typeName) const
{
    return sameType(typeName, "Widgets.Object");
}

bool GLObject::sameType(const char* left, const char* right) noexcept
{
    return left && std::strcmp(left, right) == 0;
}

void GLObject::end() noexcept
{
    m_stage = Stage::Ending;
    m_life->isGoingOn = false;
    // First: a listener may end the parent, which must not come upon this object again.
    leaveParent();
    announce();
    while (!m_children.empty())
        m_children.back()->destroy();
    doEnd();
    m_stage = Stage::Ended;
}

void GLObject::announce() noexcept
{
    try {
        m_destroyEmitter.send(this);
    } catch (...) {
        Vetra::reportError(std::current_exception(), "Listener to an object's end");
    }
}

void GLObject::leaveParent() noexcept
{
    if (!m_parent)
        return;
    std::erase(m_parent->m_children, this);
    m_parent = nullptr;
}

} // namespace Widgets
