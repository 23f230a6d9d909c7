#pragma once

#include "vetra/vetra_export.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Vetra {

/// The longest content that a drag or a paste may carry in one format, in bytes; the text of what
/// strangers send is bounded here.
inline constexpr std::size_t kMaxMimeBytes = 8 * 1024 * 1024;

/// What a drag carries: bytes by the name of their format, such as "text/plain", in the order of
/// preference. Copies share the bytes.
class VETRA_EXPORT GLMimeData {
public:
    bool isEmpty() const noexcept { return !m_entries || m_entries->empty(); }
    std::vector<std::string> formats() const;
    bool hasFormat(std::string_view format) const noexcept { return find(format) != nullptr; }
    /// Empty when the format is absent.
    std::string_view data(std::string_view format) const noexcept;
    /// Replaces what the format held. An empty format, or more than `kMaxMimeBytes`, is refused.
    void setData(std::string_view format, std::string bytes);
    bool operator==(const GLMimeData& other) const noexcept;

private:
    using Entries = std::vector<std::pair<std::string, std::string>>;
    const Entries::value_type* find(std::string_view format) const noexcept;

    std::shared_ptr<const Entries> m_entries;
};

} // namespace Vetra
