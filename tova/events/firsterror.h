#pragma once

#include <exception>
#include <utility>

namespace Tova2 {

/// Lets an operation that calls tools come to its end whatever they throw; the first exception
/// reaches the caller afterwards.
class FirstError {
public:
    /// False when the step threw.
    template <class Step>
    bool run(Step&& step)
    {
        try {
            step();
            return true;
        } catch (...) {
            if (!m_error)
                m_error = std::current_exception();
            return false;
        }
    }
    void rethrow()
    {
        if (m_error)
            std::rethrow_exception(std::exchange(m_error, nullptr));
    }

private:
    std::exception_ptr m_error;
};

} // namespace Tova2
