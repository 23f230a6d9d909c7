#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

namespace Tova2 {

/// Array that grows without moving what it holds, so that no single step of a long work has to copy
/// all that was gathered before.
template <class T>
class ChunkedVector {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);
    static constexpr std::size_t kShift = 12;
    static constexpr std::size_t kMask = (std::size_t{1} << kShift) - 1;
    using Chunk = std::unique_ptr<std::byte[]>;

public:
    std::size_t size() const { return m_size; }
    T& operator[](std::size_t i) { return at(i); }
    const T& operator[](std::size_t i) const { return at(i); }

    void push_back(const T& value)
    {
        if (m_size == m_chunks.size() << kShift)
            addChunk();
        new (&at(m_size)) T(value);
        ++m_size;
    }
    /// The new elements have no values yet.
    void grow(std::size_t size)
    {
        while (m_chunks.size() << kShift < size)
            addChunk();
        m_size = size;
    }
    /// Frees a part; true while there is more. Whoever has much to free does so step by step.
    bool freeSome()
    {
        m_size = 0;
        if (!m_chunks.empty())
            m_chunks.pop_back();
        return !m_chunks.empty();
    }

private:
    void addChunk()
    {
        m_chunks.push_back(std::make_unique_for_overwrite<std::byte[]>(sizeof(T) << kShift));
    }
    T& at(std::size_t i) const
    {
        return reinterpret_cast<T*>(m_chunks[i >> kShift].get())[i & kMask];
    }

    std::vector<Chunk> m_chunks;
    std::size_t m_size = 0;
};

/// Array of fixed size whose elements have no values until they are written.
template <class T>
class ScratchArray {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    ScratchArray() = default;
    explicit ScratchArray(std::size_t size)
        : m_values(std::make_unique_for_overwrite<T[]>(size)), m_size(size)
    {}

    std::size_t size() const { return m_size; }
    T* data() { return m_values.get(); }
    T& operator[](std::size_t i) { return m_values[i]; }
    const T& operator[](std::size_t i) const { return m_values[i]; }
    const T* begin() const { return m_values.get(); }
    const T* end() const { return m_values.get() + m_size; }
    void reset()
    {
        m_values.reset();
        m_size = 0;
    }

private:
    std::unique_ptr<T[]> m_values;
    std::size_t m_size = 0;
};

} // namespace Tova2
