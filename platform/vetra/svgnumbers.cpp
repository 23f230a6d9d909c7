#include "svgnumbers.h"

#include <QByteArray>

#include <charconv>
#include <cstring>

namespace Vetra {

namespace {

constexpr double MaxMagnitude = 1e9;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool startsNumber(const char* at, const char* end)
{
    return isDigit(*at) || (*at == '.' && at + 1 < end && isDigit(at[1]));
}

// From a `#` on: `#1e9999` is a colour or an identifier, not a number.
const char* skipIdentifier(const char* at, const char* end)
{
    while (at < end && !std::strchr(" \t\r\n,;()'\"", *at))
        ++at;
    return at;
}

} // namespace

bool areNumbersBounded(const QStringRef& text)
{
    const QByteArray bytes = text.toLatin1();
    const char *at = bytes.constBegin(), *const end = bytes.constEnd();
    while (at < end) {
        if (*at == '#') {
            at = skipIdentifier(at, end);
        } else if (startsNumber(at, end)) {
            double value = 0;
            const auto [next, error] = std::from_chars(at, end, value);
            if (error != std::errc() || value > MaxMagnitude)
                return false;
            at = next;
        } else {
            ++at;
        }
    }
    return true;
}

} // namespace Vetra
