#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace Vetra {

/// The texts of all identifiers. Nothing is ever removed, so reading takes no lock: a reader that
/// meets an empty slot asks again under the lock of the writers.
class InternedTable {
public:
    InternedTable();
    /// The one string of this text, for the life of the table.
    const std::string* intern(std::string_view text);

private:
    struct Entry {
        std::uint64_t hash;
        std::string text;
    };
    // Open addressing, at most half full, a power of two in length.
    struct Slots {
        explicit Slots(std::size_t count)
            : mask(count - 1), slots(std::make_unique<std::atomic<const Entry*>[]>(count))
        {}
        std::size_t mask;
        std::unique_ptr<std::atomic<const Entry*>[]> slots;
    };
    static const Entry* find(const Slots& in, std::string_view text, std::uint64_t hash) noexcept;
    static void place(Slots& in, const Entry* entry) noexcept;
    const Entry* insert(std::string_view text, std::uint64_t hash);
    void grow();

    std::atomic<Slots*> m_current;
    std::mutex m_writing;
    std::vector<std::unique_ptr<const Entry>> m_entries;
    // The outgrown ones stay, since a reader may still be in one; together they are as large as the
    // current.
    std::vector<std::unique_ptr<Slots>> m_all;
};

} // namespace Vetra
