#include "vetra/glmimedata.h"

#include <algorithm>

namespace Vetra {

const GLMimeData::Entries::value_type* GLMimeData::find(std::string_view format) const noexcept
{
    if (!m_entries)
        return nullptr;
    const auto entry = std::find_if(m_entries->begin(), m_entries->end(),
                                    [&](const auto& e) { return e.first == format; });
    return entry == m_entries->end() ? nullptr : &*entry;
}

std::vector<std::string> GLMimeData::formats() const
{
    std::vector<std::string> names;
    if (m_entries) {
        for (const auto& [format, bytes] : *m_entries)
            names.push_back(format);
    }
    return names;
}

std::string_view GLMimeData::data(std::string_view format) const noexcept
{
    const auto* const entry = find(format);
    return entry ? std::string_view(entry->second) : std::string_view();
}

void GLMimeData::setData(std::string_view format, std::string bytes)
{
    if (format.empty() || bytes.size() > kMaxMimeBytes)
        return;
    auto entries = m_entries ? std::make_shared<Entries>(*m_entries) : std::make_shared<Entries>();
    const auto entry = std::find_if(entries->begin(), entries->end(),
                                    [&](const auto& e) { return e.first == format; });
    if (entry == entries->end())
        entries->emplace_back(format, std::move(bytes));
    else
        entry->second = std::move(bytes);
    m_entries = std::move(entries);
}

bool GLMimeData::operator==(const GLMimeData& other) const noexcept
{
    if (m_entries == other.m_entries || (isEmpty() && other.isEmpty()))
        return true;
    return m_entries && other.m_entries && *m_entries == *other.m_entries;
}

} // namespace Vetra
