#include "textio/statistics.hpp"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace {

using Counts = std::vector<std::size_t>;
using Values = std::vector<double>;
using namespace textio::detection;

TEST(TypicalCount, SmallestHeaderIsTheRunOfLoneFieldsAtTheTop) {
    const std::vector<std::tuple<Counts, std::size_t>> cases{
        {Counts{}, 0}, {{1, 1, 1}, 3}, {{1, 0, 1}, 1}, {{0, 1}, 0}, {{2, 1}, 0}};
    for (const auto& [counts, expected] : cases) {
        EXPECT_EQ(get_h_min(counts), expected) << testing::PrintToString(counts);
    }
}

TEST(TypicalCount, IsTheLowerMedianOfWideLines) {
    const std::vector<std::tuple<const char*, Counts, std::size_t, std::size_t>> cases{
        {"only empty and single", {0, 1, 1, 0}, 0, 1},
        {"lower of two middle ones", {2, 3}, 0, 2},
        {"unsorted, with thin lines between", {3, 3, 1, 0, 5, 4}, 0, 3},
        {"middle of five, some very wide", {90, 2, 64, 63, 70}, 0, 64},
        {"a third of eleven", {1, 1, 1, 1, 1, 1, 1, 1, 3, 3, 3}, 0, 3},
        {"too few of eleven", {1, 1, 1, 1, 1, 1, 1, 1, 1, 3, 3}, 0, 1},
        {"ten lines are never too few", {1, 1, 1, 1, 1, 1, 1, 1, 1, 7}, 0, 7},
        {"empty lines don't count", {1, 1, 1, 1, 1, 1, 1, 1, 3, 3, 0, 0, 0, 0}, 0, 3},
        {"lines above the smallest header don't count", {2, 2, 2, 9, 4, 9}, 3, 9},
        {"smallest header beyond the end", {4, 4}, 3, 1},
    };
    for (const auto& [name, counts, h_min, expected] : cases) {
        EXPECT_EQ(get_modified_median(counts, h_min), expected) << name;
    }
}

TEST(TypicalCount, DistancesEndAtTheLastTypicalLine) {
    EXPECT_EQ(absolute_differences({3, 0, 1, 3, 3, 5, 1}, 3), (Counts{0, 2, 0, 0}));
    EXPECT_EQ(absolute_differences({9, 3}, 3), (Counts{6, 0})) << "a count above the median";
    EXPECT_EQ(absolute_differences({2, 4, 2}, 3), Counts{}) << "no typical line";
}

TEST(HeaderLines, FilterTakesTheEndValueForTheNeighbourBeyondIt) {
    const std::vector<std::tuple<const char*, Values, double, double, double, Values>> cases{
        {"nothing", {}, 5, 7, 9, {}},
        {"one value", {3}, 5, 7, 9, {3}},
        {"two values", {3, 10}, -1, 2, -1, {-7, 7}},
        {"second difference", {1, 2, 4, 8}, -1, 2, -1, {-1, -1, -2, 4}},
        {"unequal taps", {1, 10, 100}, 2, 3, 5, {55, 532, 820}},
        {"rounds after each addition", {1e16, 1, -9e15}, 1, 1, 1, {2e16, 1e15, -1.8e16}},
    };
    for (const auto& [name, values, left, centre, right, expected] : cases) {
        EXPECT_EQ(filter_vector(values, left, centre, right), expected) << name;
    }
}

TEST(HeaderLines, Estimate) {
    const std::vector<std::tuple<const char*, Counts, std::size_t, bool, std::size_t>> cases{
        {"nothing", {}, 3, false, 3},
        {"one line", {0}, 3, false, 3},
        {"two lines that differ", {3, 0}, 9, false, 1},
        {"two equal lines", {3, 3}, 9, true, 0},
        {"a title and an odd line", {4, 3, 0, 0, 0, 0, 0, 0}, 1, false, 2},
        {"more than two thirds", {1, 1, 1, 1, 1, 1, 1, 0}, 0, false, 0},
        {"exactly two thirds", {0, 3, 3, 2, 0, 0}, 0, false, 4},
        {"a far line among delimiters", {0, 1, 7, 1, 0}, 1, false, 3},
        {"a far line among blanks", {0, 1, 7, 1, 0}, 1, true, 1},
    };
    for (const auto& [name, diffs, h_min, space_separated, expected] : cases) {
        EXPECT_EQ(get_header_lines(diffs, h_min, space_separated), expected) << name;
    }
}

// The estimate for three lines or more, with every array written out over all lines.
std::size_t estimate_in_full(const Counts& diffs, std::size_t h_min, bool space_separated) {
    const std::size_t n = diffs.size();
    Values curve(n);
    Counts zeros(n);
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) {
        sum += static_cast<double>(space_separated && i != 0 ? std::min<std::size_t>(diffs[i], 2) : diffs[i]);
        curve[i] = sum * (sum / static_cast<double>(i + 1));
        zeros[i] = (i == 0 ? 0 : zeros[i - 1]) + (diffs[i] == 0 ? 1 : 0);
    }
    std::size_t m = n - 1;
    for (; m > h_min && diffs[m - 1] == 0; --m) {
    }
    for (; m > h_min && zeros[m - 1] > m / 2; --m) {
    }
    if (m <= h_min) {
        return h_min;
    }
    const Values bend = filter_vector(curve, -1.0, 2.0, -1.0);
    const auto best = std::max_element(bend.begin(), bend.begin() + static_cast<int>(m));
    auto x = std::max(static_cast<std::size_t>(best - bend.begin()) + 1, h_min);
    for (; x > 0 && diffs[x - 1] == 0; --x) {
    }
    return 3 * x > 2 * n ? h_min : x;
}

TEST(HeaderLines, EstimateEqualsTheOneWrittenOutInFull) {
    std::mt19937 random(20240607);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (int run = 0; run < 40'000; ++run) {
        Counts diffs(3 + below(run % 10 == 0 ? 60 : 8));
        const std::size_t regular_percent = below(90);
        for (std::size_t& distance : diffs) {
            distance = below(100) < regular_percent ? 0 : 1 + below(below(5) == 0 ? 40 : 3);
        }
        const std::size_t h_min = below(3) == 0 ? below(diffs.size() + 2) : 0;
        const bool space_separated = below(2) == 0;
        ASSERT_EQ(get_header_lines(diffs, h_min, space_separated), estimate_in_full(diffs, h_min, space_separated))
            << testing::PrintToString(diffs) << " h_min " << h_min << ' ' << space_separated;
    }
}

TEST(HeaderLines, AdjustmentCountsEmptyLinesAndRunsOnOverThinOnes) {
    const std::vector<std::tuple<const char*, std::size_t, Counts, Counts, std::size_t>> cases{
        {"empty lines at the top", 0, {0, 1}, {0, 0, 3}, 2},
        {"an empty line below the last header line", 2, {2}, {1, 2, 0, 5, 5}, 3},
        {"each empty line brings the next inside", 1, {1, 2, 3}, {4, 0, 0, 0, 4, 4}, 4},
        {"an empty line among the data", 1, {0, 3}, {1, 1, 2, 1, 1, 3}, 2},
        {"thin to the end", 0, {}, {1, 1, 1}, 3},
        {"beyond the end", 7, {}, {1, 1}, 7},
    };
    for (const auto& [name, header_lines, empty_lines, counts, expected] : cases) {
        EXPECT_EQ(adjust_header(header_lines, empty_lines, counts), expected) << name;
    }
}

} // namespace
