#include "nodes/crossings/slicedsort.h"
#include "nodes/crossings/activeset.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <set>

namespace Tova2 {

namespace {

struct SortCase {
    const char* name;
    std::size_t size;
    double (*number)(std::mt19937& random);
};
std::string caseName(const testing::TestParamInfo<SortCase>& info)
{
    return info.param.name;
}
class SlicedSortTest : public testing::TestWithParam<SortCase> {};

TEST_P(SlicedSortTest, EqualsAStableSortWhateverTheSlices)
{
    for (const int steps : {0, 1, 3}) {
        std::mt19937 random(7);
        ScratchArray<SortItem> items(GetParam().size);
        std::vector<std::pair<double, std::uint32_t>> expected;
        for (std::uint32_t i = 0; i < items.size(); ++i) {
            const double number = GetParam().number(random);
            items[i] = {sortKey(number), i};
            expected.emplace_back(number, i);
        }
        std::ranges::stable_sort(expected, {}, &std::pair<double, std::uint32_t>::first);
        SlicedSort sort(std::move(items));
        Host::TaskBudget budget = steps ? Host::TaskBudget::steps(steps) : Host::TaskBudget();
        while (!sort.run(budget))
            budget = Host::TaskBudget::steps(steps);
        ASSERT_EQ(sort.items().size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(sort.items()[i].value, expected[i].second) << i;
            ASSERT_EQ(numberOfKey(sort.items()[i].key), expected[i].first) << i;
        }
    }
}
INSTANTIATE_TEST_SUITE_P(
    Crossings, SlicedSortTest,
    testing::Values(
        SortCase{"None", 0, [](std::mt19937&) { return 0.0; }},
        SortCase{"Few", 100, [](std::mt19937& random) { return random() % 50 - 25.0; }},
        SortCase{"AllEqual", 5000, [](std::mt19937&) { return 7.5; }},
        SortCase{"Integers", 9000, [](std::mt19937& random) { return random() % 30000 - 15000.0; }},
        SortCase{"BothZeros", 3000, [](std::mt19937& random) { return random() % 2 ? 0.0 : -0.0; }},
        SortCase{
            "Fractions", 9000,
            [](std::mt19937& random) { return std::ldexp(random() - 2e9, random() % 90 - 45); }}),
    caseName);

TEST(ActiveSetTest, EqualsASet)
{
    std::mt19937 random(3);
    for (const std::size_t size : {1u, 64u, 65u, 5000u, 20000u}) {
        ActiveSet bits(size);
        std::set<std::size_t> expected;
        for (int i = 0; i < 3000; ++i) {
            const std::size_t one = random() % size;
            if (random() % 3) {
                bits.insert(one);
                expected.insert(one);
            } else {
                bits.erase(one);
                expected.erase(one);
            }
            if (i % 10)
                continue;
            const std::size_t from = random() % size, to = from + random() % (size - from + 1);
            std::vector<std::size_t> found;
            bits.forEach(from, to, [&](std::size_t member) { found.push_back(member); });
            ASSERT_EQ(found, std::vector(expected.lower_bound(from), expected.lower_bound(to)));
        }
    }
}

} // namespace

} // namespace Tova2
