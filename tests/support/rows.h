#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace TestSupport {

/// What rows of tables begin with: the name of what each proves, shown wherever the row is.
struct NamedRow {
    const char* name;

    friend std::ostream& operator<<(std::ostream& out, const NamedRow& row)
    {
        return out << row.name;
    }
};

/// Names the tests of a table after its rows.
inline constexpr auto rowName = [](const auto& info) { return std::string(info.param.name); };

} // namespace TestSupport

using TestSupport::NamedRow;
using TestSupport::rowName;
