#include "host/shutdownregistry.h"

#include "vetra/errorreporter.h"

#include <algorithm>
#include <utility>

#include <cstdlib>

namespace Host {

namespace {

void walkAtExit()
{
    ShutdownRegistry::instance().shutDown();
}

} // namespace

ShutdownObject::ShutdownObject(std::string name, std::function<void()> shutDown)
    : m_name(std::move(name)), m_shutDown(std::move(shutDown))
{}

void ShutdownObject::shutDown() const
{
    if (m_shutDown)
        m_shutDown();
}

ShutdownRegistry& ShutdownRegistry::instance()
{
    // Never destroyed: libraries leave in any order.
    static auto* const registry = new ShutdownRegistry;
    return *registry;
}

void ShutdownRegistry::registerObject(std::shared_ptr<const ShutdownObject> object)
{
    if (!object)
        return;
    unregisterObject(object->name());
    m_objects.push_back(std::move(object));
    // Each time anew: statics that the newcomer uses must outlive the walk.
    std::atexit(walkAtExit);
}

bool ShutdownRegistry::unregisterObject(std::string_view name)
{
    return std::erase_if(m_objects, [&](const auto& object) { return object->name() == name; }) > 0;
}

bool ShutdownRegistry::isRegistered(std::string_view name) const
{
    return std::any_of(m_objects.begin(), m_objects.end(),
                       [&](const auto& object) { return object->name() == name; });
}

void ShutdownRegistry::shutDown()
{
    const auto objects = m_objects;
    for (auto object = objects.rbegin(); object != objects.rend(); ++object) {
        if (std::erase(m_objects, *object) == 0)
            continue;
        try {
            (*object)->shutDown();
        } catch (...) {
            Vetra::reportError(std::current_exception(), "shutdown");
        }
    }
}

} // namespace Host
