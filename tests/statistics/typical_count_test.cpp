#include "textio/statistics.hpp"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using Counts = std::vector<std::size_t>;
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
        {"lower of two middle ones", {3, 2}, 0, 2},
        {"unsorted, with thin lines between", {3, 3, 1, 0, 5, 4}, 0, 3},
        {"middle of five", {9, 2, 8, 3, 7}, 0, 7},
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

} // namespace
