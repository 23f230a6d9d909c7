#include "vetra/errorreporter.h"

#include <QtGlobal>

#include <utility>

namespace Vetra {

namespace {

ErrorReporter& errorReporter()
{
    static ErrorReporter reporter;
    return reporter;
}

void warn(std::exception_ptr error, const char* where) noexcept
{
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& e) {
        qWarning("%s: %.4000s", where, e.what());
    } catch (...) {
        qWarning("%s: exception of unknown type", where);
    }
}

} // namespace

void setErrorReporter(ErrorReporter reporter)
{
    errorReporter() = std::move(reporter);
}

void reportError(std::exception_ptr error, const char* where) noexcept
{
    try {
        const auto reporter = errorReporter(); // it may replace itself
        if (reporter)
            reporter(error);
        else
            warn(error, where);
    } catch (...) {
        warn(std::current_exception(), where);
    }
}

} // namespace Vetra
