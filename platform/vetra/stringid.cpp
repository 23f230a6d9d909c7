#include "vetra/stringid.h"

#include "internedtable.h"

namespace Vetra {

namespace {

const std::string* intern(std::string_view text)
{
    if (text.empty())
        return nullptr;
    // Never destroyed: identifiers in static objects outlive any order of teardown.
    static auto* const table = new InternedTable;
    return table->intern(text);
}

} // namespace

StringID::StringID(std::string_view text) : m_entry(intern(text)) {}

const std::string& StringID::str() const noexcept
{
    static const auto* const none = new std::string;
    return m_entry ? *m_entry : *none;
}

} // namespace Vetra
