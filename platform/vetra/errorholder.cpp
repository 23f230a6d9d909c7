#include "vetra/errorholder.h"

#include <utility>

namespace Vetra {

void ErrorHolder::add(Error error)
{
    m_errors.push_back(std::move(error));
}

void ErrorHolder::add(std::exception_ptr error)
{
    if (!error)
        return;
    try {
        std::rethrow_exception(std::move(error));
    } catch (const Error& known) {
        m_errors.push_back(known);
    } catch (const std::exception& other) {
        m_errors.emplace_back("vetra:errors", "Unknown", other.what());
    } catch (...) {
        m_errors.emplace_back("vetra:errors", "Unknown");
    }
}

} // namespace Vetra
