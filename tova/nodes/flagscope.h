#pragma once

#include <utility>

namespace Tova2 {

/// Keeps a flag up while it lives; then it is as before.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
    ~FlagScope() { m_flag = m_before; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& m_flag;
    const bool m_before;
};

} // namespace Tova2
