#include "vetra/stringid.h"

#include "internedtable.h"
#include "support.h"

#include <set>
#include <thread>

namespace Vetra {
namespace {

TEST(StringIDTest, EqualTextsAreOneIdentifier)
{
    const std::string text = "Base";
    EXPECT_EQ(StringID(text), StringID("Base"));
    EXPECT_EQ(&StringID(text).str(), &StringID("Base").str());
    EXPECT_NE(StringID("Base"), StringID("base"));
    EXPECT_NE(StringID(std::string_view("a\0b", 3)), StringID("a"));
}

TEST(StringIDTest, EmptyIsEmptyHoweverMade)
{
    EXPECT_EQ(StringID(""), StringID());
    EXPECT_EQ(StringID(static_cast<const char*>(nullptr)), StringID());
    EXPECT_TRUE(StringID("").str().empty());
}

TEST(InternedTableTest, TextsThatDifferAnywhereStayApart)
{
    InternedTable table;
    std::set<const std::string*> seen;
    std::size_t count = 0;
    // One changed byte at each place of each length, past the widths the hash reads at once.
    for (std::size_t length = 1; length <= 40; ++length) {
        for (std::size_t at = 0; at < length; ++at, ++count) {
            std::string text(length, 'a');
            text[at] = 'b';
            const auto* const entry = table.intern(text);
            EXPECT_EQ(*entry, text);
            seen.insert(entry);
        }
    }
    EXPECT_EQ(seen.size(), count);
}

TEST(InternedTableTest, ThreadsThatGrowTheTableAgreeOnEveryText)
{
    constexpr int threadCount = 4, textCount = 20000;
    InternedTable table;
    std::vector<std::vector<const std::string*>> seen(threadCount);
    std::vector<std::thread> threads;
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([&, t] {
            // Each begins elsewhere, so that all of them insert and find.
            for (int i = 0; i < textCount; ++i) {
                const int n = (i + t * textCount / threadCount) % textCount;
                seen[t].push_back(table.intern("tag" + std::to_string(n)));
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    for (int t = 0; t < threadCount; ++t) {
        for (int i = 0; i < textCount; ++i) {
            const int n = (i + t * textCount / threadCount) % textCount;
            ASSERT_EQ(seen[t][i], table.intern("tag" + std::to_string(n)));
        }
    }
}

} // namespace
} // namespace Vetra
