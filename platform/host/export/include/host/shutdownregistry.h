#pragma once

#include "host/host_export.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Host {

/// What a library wants done when the process ends.
class HOST_EXPORT ShutdownObject {
public:
    ShutdownObject(std::string name, std::function<void()> shutDown);

    const std::string& name() const noexcept { return m_name; }
    void shutDown() const;

private:
    std::string m_name;
    std::function<void()> m_shutDown;
};

/// Calls libraries back at the end of the process, the youngest first. GUI thread.
///
/// The walk happens in `std::exit`, before the destruction of any static that was made before the
/// youngest registration; a host may have it earlier by `shutDown`.
class HOST_EXPORT ShutdownRegistry {
public:
    static ShutdownRegistry& instance();

    /// One of the same name is replaced, and is never called. Null is refused.
    void registerObject(std::shared_ptr<const ShutdownObject> object);
    /// False when there is none of this name. Allowed in the midst of a walk.
    bool unregisterObject(std::string_view name);
    bool isRegistered(std::string_view name) const;

    /// Takes out and calls, one by one, those that are registered as it begins and not unregistered
    /// meanwhile; what they throw goes to the error reporter. Those that register meanwhile wait
    /// for the next walk.
    void shutDown();

private:
    ShutdownRegistry() = default;

    std::vector<std::shared_ptr<const ShutdownObject>> m_objects;
};

} // namespace Host
