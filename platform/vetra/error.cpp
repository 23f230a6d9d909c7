#include "vetra/error.h"

#include <utility>

namespace Vetra {

Error::Error(std::string group, std::string key, const std::string& detail)
    : std::runtime_error(group + '/' + key + (detail.empty() ? "" : ": " + detail))
    , m_group(std::move(group))
    , m_key(std::move(key))
{}

Error::~Error() = default;

} // namespace Vetra
