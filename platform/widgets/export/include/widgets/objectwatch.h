#pragma once

#include "widgets/globject.h"

namespace Widgets {

/// Points to a `T`, a kind of `GLObject`, for as long as that has not ended; null afterwards, and
/// by default.
template <class T>
class ObjectWatch {
public:
    ObjectWatch() noexcept = default;
    ObjectWatch(T* object) : m_object(object)
    {
        if (object)
            m_life = static_cast<const GLObject*>(object)->m_life;
    }
    T* get() const noexcept { return m_life && m_life->isGoingOn ? m_object : nullptr; }
    T* operator->() const noexcept { return get(); }
    explicit operator bool() const noexcept { return get() != nullptr; }

private:
    T* m_object = nullptr;
    Vetra::Holder<GLObject::Life> m_life;
};

} // namespace Widgets
