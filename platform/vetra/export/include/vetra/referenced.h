#pragma once

#include "vetra/vetra_export.h"

#include <atomic>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace Vetra {

/// Base of objects kept alive by an intrusive, atomic count. A new object has the count 0;
/// the first reference makes it owned. Copying an object never copies its count.
class VETRA_EXPORT Referenced {
public:
    Referenced() noexcept = default;
    Referenced(const Referenced&) noexcept {}
    Referenced& operator=(const Referenced&) noexcept { return *this; }

    void increment() const noexcept { m_count.fetch_add(1, std::memory_order_relaxed); }
    /// Returns the new count. The caller that sees 0 calls `destroy`; `unreference` does both.
    int decrement() const noexcept { return m_count.fetch_sub(1, std::memory_order_acq_rel) - 1; }
    void unreference() const
    {
        if (decrement() == 0)
            const_cast<Referenced*>(this)->destroy();
    }
    int referenceCount() const noexcept { return m_count.load(std::memory_order_acquire); }

protected:
    // Order of the virtual operations matters to those who derive: destructor, then destroy.
    virtual ~Referenced();
    /// The count has reached zero. Deletes the object unless a class has a better way to dispose of
    /// it.
    virtual void destroy();

private:
    mutable std::atomic<int> m_count{0};
};

/// Owning pointer to a `Referenced` object; empty by default. Holders of one object may live in
/// several threads, one holder may not.
template <class T>
class Holder {
public:
    constexpr Holder() noexcept = default;
    constexpr Holder(std::nullptr_t) noexcept {}
    Holder(T* object) noexcept : m_object(object) { acquire(); }
    Holder(const Holder& other) noexcept : m_object(other.m_object) { acquire(); }
    Holder(Holder&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    template <class U>
    requires std::is_convertible_v<U*, T*> Holder(const Holder<U>& other)
    noexcept : Holder(other.get()) {}
    ~Holder() { drop(m_object); }

    Holder& operator=(Holder other) noexcept
    {
        // By value: the new reference is there before the old one goes, also for self-assignment.
        std::swap(m_object, other.m_object);
        return *this;
    }
    void reset() noexcept { drop(std::exchange(m_object, nullptr)); }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    bool operator==(const Holder&) const = default;
    bool operator==(const T* object) const noexcept { return m_object == object; }

private:
    void acquire() const noexcept
    {
        if (m_object)
            static_cast<const Referenced*>(m_object)->increment();
    }
    static void drop(T* object)
    {
        if (object)
            static_cast<const Referenced*>(object)->unreference();
    }

    T* m_object = nullptr;
};

} // namespace Vetra
