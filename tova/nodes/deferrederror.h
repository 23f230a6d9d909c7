#pragma once

#include <exception>
#include <utility>

namespace Tova2 {

/// Lets an operation that calls out to a host run to its end: the first exception is kept and
/// thrown again when the state is whole.
class DeferredError {
public:
    template <class Step>
    void run(Step&& step)
    {
        try {
            std::forward<Step>(step)();
        } catch (...) {
            if (!m_first)
                m_first = std::current_exception();
        }
    }
    void rethrow() const
    {
        if (m_first)
            std::rethrow_exception(m_first);
    }

private:
    std::exception_ptr m_first;
};

} // namespace Tova2
