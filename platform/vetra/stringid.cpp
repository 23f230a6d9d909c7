#include "vetra/stringid.h"

#include <mutex>
#include <shared_mutex>
#include <unordered_set>

namespace Vetra {

namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept
    {
        return std::hash<std::string_view>()(text);
    }
};

struct Table {
    std::shared_mutex mutex;
    std::unordered_set<std::string, TextHash, std::equal_to<>> texts;
};

Table& table()
{
    // Never destroyed: identifiers in static objects outlive any order of teardown.
    static auto* const instance = new Table;
    return *instance;
}

const std::string* intern(std::string_view text)
{
    if (text.empty())
        return nullptr;
    auto& all = table();
    {
        std::shared_lock lock(all.mutex);
        if (const auto found = all.texts.find(text); found != all.texts.end())
            return &*found;
    }
    std::unique_lock lock(all.mutex);
    return &*all.texts.emplace(text).first;
}

} // namespace

StringID::StringID(std::string_view text) : m_entry(intern(text)) {}

const std::string& StringID::str() const noexcept
{
    static const auto* const none = new std::string;
    return m_entry ? *m_entry : *none;
}

} // namespace Vetra
