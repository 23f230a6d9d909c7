#pragma once

#include "vetra/vetra_export.h"

#include <stdexcept>
#include <string>

namespace Vetra {

/// The exception of every library failure: a message group such as "tova:nodes" and a key in it, by
/// which the host looks up its own text.
class VETRA_EXPORT Error : public std::runtime_error {
public:
    /// `what()` reads "group/key", followed by ": detail" where there is one.
    Error(std::string group, std::string key, const std::string& detail = {});
    ~Error() override;

    const std::string& group() const noexcept { return m_group; }
    const std::string& key() const noexcept { return m_key; }

private:
    std::string m_group;
    std::string m_key;
};

} // namespace Vetra
