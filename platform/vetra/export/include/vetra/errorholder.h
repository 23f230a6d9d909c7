#pragma once

#include "vetra/error.h"

#include <exception>
#include <vector>

namespace Vetra {

/// Collects what goes wrong while several things are tried one after another, so that a failure of
/// one does not keep the others from their turn.
class VETRA_EXPORT ErrorHolder {
public:
    void add(Error error);
    /// What is no `Error` becomes vetra:errors/Unknown with its text as the detail. Null is left
    /// out.
    void add(std::exception_ptr error);

    bool hasErrors() const noexcept { return !m_errors.empty(); }
    /// In the order in which they came.
    const std::vector<Error>& errors() const noexcept { return m_errors; }
    void clear() noexcept { m_errors.clear(); }

private:
    std::vector<Error> m_errors;
};

} // namespace Vetra
