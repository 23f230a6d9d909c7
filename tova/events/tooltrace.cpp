#include "tova/events/tooltrace.h"

#include "events/tooltracelog.h"

#include <QtGlobal>

#include <cxxabi.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <typeinfo>

namespace Tova2 {

namespace {

constexpr std::size_t kLongestLine = 4096;

/// Roles and messages have names from outside: one step stays one line of bounded length.
std::string printable(const std::string& text)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string line;
    for (const char c : text.substr(0, kLongestLine)) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x20 && code != 0x7f)
            line += c;
        else
            line.append("\\x").append(1, digits[code >> 4]).append(1, digits[code & 15]);
    }
    return line;
}

std::string withoutNamespaces(const std::string& name)
{
    // Not inside template arguments; "(anonymous namespace)" ends in "::" as well.
    const auto end = name.find('<');
    const auto last = name.rfind("::", end);
    return last == std::string::npos ? name : name.substr(last + 2);
}

std::string className(const std::type_info& type)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    return withoutNamespaces(name ? name.get() : type.name());
}

} // namespace

bool ToolTrace::s_isEnabled =
    !qEnvironmentVariableIsEmpty("TOVA_TRACE_TOOLS") && qgetenv("TOVA_TRACE_TOOLS") != "0";

void TraceLine::append(const Tool& tool)
{
    *m_text += className(typeid(tool));
}

void TraceLine::appendOutcome(const Tool& tool, Tool::EInteractionState before, bool hasActivated,
                              const char* activated)
{
    if (tool.getInteractionState() == before)
        *this << ", state did not change";
    else
        *this << ", became " << tool.getInteractionState();
    if (hasActivated)
        *this << activated;
}

void TraceLine::write() noexcept
{
    try {
        if (!m_text->empty())
            std::cout << printable(*m_text) << std::endl;
    } catch (...) {
        // Whoever traces sees that a line is missing; the dispatch goes on.
    }
}

} // namespace Tova2
