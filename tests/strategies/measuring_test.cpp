#include "strategies/measuring.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

namespace {

using namespace textio;

/// A record that no measuring has filled in, so that a figure that is left out shows.
StrategyValuation with_header(std::size_t header_lines) {
    StrategyValuation record;
    record.overall_variation = 0.125;
    record.data_variation = 0.25;
    record.num_variables = 77;
    record.header_lines = header_lines;
    return record;
}

bool are_same_bits(double left, double right) {
    return std::memcmp(&left, &right, sizeof left) == 0;
}

/// Measures both ways under every setting of the header, and tells where the figures differ.
void expect_same_both_ways(const std::vector<std::size_t>& counts, std::size_t fields) {
    std::vector<std::size_t> line_ends;
    std::size_t end = 0;
    std::string shown;
    for (const std::size_t count : counts) {
        line_ends.push_back(end += count);
        shown += std::to_string(count) + " ";
    }
    const auto expect_same = [&](HeaderSearch search, std::size_t header_lines) {
        StrategyValuation by_line = with_header(header_lines);
        StrategyValuation at_once = by_line;
        EXPECT_EQ(measure_regular_lines(line_ends, fields, search, at_once), measure_counts(counts, search, by_line));
        EXPECT_TRUE(are_same_bits(at_once.overall_variation, by_line.overall_variation));
        EXPECT_TRUE(are_same_bits(at_once.data_variation, by_line.data_variation));
        EXPECT_EQ(at_once.median_fields, by_line.median_fields);
        EXPECT_EQ(at_once.num_variables, by_line.num_variables);
        EXPECT_EQ(at_once.header_lines, by_line.header_lines);
        if (testing::Test::HasFailure()) {
            FAIL() << "fields " << shown << ", header " << header_lines << (search.is_on ? ", sought" : "")
                   << (search.is_space_separated ? ", blanks" : "");
        }
    };
    for (const bool is_space_separated : {false, true}) {
        expect_same({true, is_space_separated}, SIZE_MAX);
        expect_same({false, is_space_separated}, SIZE_MAX);
        const std::size_t past_the_end = counts.size() + 2;
        for (std::size_t header = 0; header <= past_the_end; header += counts.size() / 8 + 1) {
            expect_same({false, is_space_separated}, header);
        }
    }
}

TEST(Measuring, OfRegularLinesGivesWhatTheCountOfEachLineGives) {
    constexpr std::size_t most_lines = 8;
    for (std::size_t fields = 1; fields <= 5; ++fields) {
        for (std::size_t lines = 1; lines <= most_lines; ++lines) {
            for (std::size_t filled = 0; filled < std::size_t{1} << (lines - 1); ++filled) {
                std::vector<std::size_t> counts;
                for (std::size_t line = 0; line + 1 < lines; ++line) {
                    counts.push_back((filled >> line & 1U) * fields);
                }
                counts.push_back(fields);
                ASSERT_NO_FATAL_FAILURE(expect_same_both_ways(counts, fields));
            }
        }
    }
}

TEST(Measuring, OfManyRegularLinesToo) {
    std::mt19937 random(4711);
    for (int text = 0; text < 300; ++text) {
        const std::size_t fields = 1 + random() % (text % 2 == 0 ? 5 : 1000);
        const auto empty_of_ten = random() % 10;
        std::vector<std::size_t> counts(1 + random() % 400);
        for (std::size_t& count : counts) {
            count = random() % 10 < empty_of_ten ? 0 : fields;
        }
        counts.back() = fields;
        ASSERT_NO_FATAL_FAILURE(expect_same_both_ways(counts, fields));
    }
}

} // namespace
