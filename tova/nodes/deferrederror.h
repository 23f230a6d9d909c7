#pragma once

#include <exception>
#include <utility>

namespace Tova2 {

/// Lets an operation that calls out to a host run to its end whatever the host throws: the first
/// exception is kept and thrown again when the state is whole.
class DeferredError {
public:
    /// False when the step threw.
    template <class Step>
    bool run(Step&& step)
    {
        try {
            std::forward<Step>(step)();
            return true;
        } catch (...) {
            if (!m_first)
                m_first = std::current_exception();
            return false;
        }
    }
    void rethrow()
    {
        if (m_first)
            std::rethrow_exception(std::exchange(m_first, nullptr));
    }

private:
    std::exception_ptr m_first;
};

} // namespace Tova2
