#include "strategies/measuring.hpp"

#include "textio/statistics.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>

namespace textio {

namespace {

constexpr double undefined_variation = std::numeric_limits<double>::infinity();

/// Above this, a detected header explains the sample so badly that it is given up.
constexpr double most_data_variation = 1.0;

/// How many lines of one field stand before the first without any.
std::size_t lines_before_empty_one(LineEnds line_ends) {
    std::size_t lines = 0;
    while (lines < line_ends.size() && line_ends[lines] == lines + 1) {
        ++lines;
    }
    return lines;
}

std::vector<std::size_t> lines_without_fields(const std::vector<std::size_t>& counts) {
    std::vector<std::size_t> lines;
    for (std::size_t line = 0; line < counts.size(); ++line) {
        if (counts[line] == 0) {
            lines.push_back(line);
        }
    }
    return lines;
}

/// The sum that the values give when they are added in their order as floating-point numbers. While
/// that is exact, as it is for all but absurd values, adding whole numbers gives the same and is
/// much faster.
double sum_in_order(std::span<const std::size_t> values) {
    constexpr std::uint64_t small = std::uint64_t{1} << 32U;
    constexpr std::uint64_t few = std::uint64_t{1} << 21U; // of these, the sum has at most 53 bits
    std::uint64_t sum = 0;
    std::uint64_t bits = 0;
    for (const std::size_t value : values) {
        sum += value;
        bits |= value;
    }
    if (bits < small && values.size() < few) {
        return static_cast<double>(sum);
    }
    return std::accumulate(values.begin(), values.end(), 0.0, [](double total, std::size_t value) {
        return total + static_cast<double>(value);
    });
}

/// The mean of the values from `first` on.
double mean_from(const std::vector<std::size_t>& values, std::size_t first) {
    const auto wanted = std::span(values).subspan(first);
    return sum_in_order(wanted) / static_cast<double>(wanted.size());
}

/// Settles whether there are data lines and, for lines of one field, how many of these are the
/// header.
bool settle_lines(std::size_t lines, std::size_t h_min, HeaderSearch search,
                  StrategyValuation& record) {
    const bool has_data_lines = h_min < lines;
    if (search.is_on && record.median_fields < 2) {
        record.header_lines = has_data_lines ? h_min : 0;
    }
    return has_data_lines;
}

void measure_table(const std::vector<std::size_t>& counts, std::size_t h_min, HeaderSearch search,
                   StrategyValuation& record) {
    const auto empty_lines = lines_without_fields(counts);
    const auto diffs =
        detection::absolute_differences(counts, static_cast<std::size_t>(record.median_fields));
    if (diffs.empty()) {
        record.header_lines = std::max(h_min, detection::adjust_header(0, empty_lines, counts));
        return;
    }
    record.overall_variation = mean_from(diffs, 0);
    record.header_lines = decided_header(record, diffs, h_min, search.is_space_separated);
    record.data_variation = variation_behind_header(record, diffs);
    if (search.is_on) {
        if (record.header_lines > h_min && record.data_variation > most_data_variation) {
            record.header_lines = h_min;
            record.data_variation = variation_behind_header(record, diffs);
        }
        // From here on the header is counted in lines of the text, no longer in non-empty lines.
        record.header_lines = detection::adjust_header(record.header_lines, empty_lines, counts);
    }
    record.num_variables = most_fields(counts, record.header_lines);
}

/// Measures a table whose lines all have the typical count of fields, two or more, or none at all.
void measure_regular_table(LineEnds line_ends, HeaderSearch search, StrategyValuation& record) {
    const auto fields = static_cast<std::size_t>(record.median_fields);
    if (search.is_on) {
        record.header_lines = lines_before_filled_one(line_ends);
    } else if (record.header_lines == SIZE_MAX) {
        record.header_lines = 0;
    }
    const bool is_all_header = !search.is_on && record.header_lines == line_ends.back() / fields;
    record.overall_variation = 0;
    record.data_variation = is_all_header ? undefined_variation : 0;
    record.num_variables = record.header_lines < line_ends.size() ? fields : 1;
}

} // namespace

std::size_t lines_before_filled_one(LineEnds line_ends) {
    const auto first_filled = std::upper_bound(line_ends.begin(), line_ends.end(), std::size_t{0});
    return static_cast<std::size_t>(first_filled - line_ends.begin());
}

bool measure_regular_lines(LineEnds line_ends, std::size_t fields, HeaderSearch search,
                           StrategyValuation& record) {
    record.median_fields = static_cast<std::int32_t>(fields);
    const bool has_single_fields = search.is_on && fields == 1;
    const std::size_t h_min = has_single_fields ? lines_before_empty_one(line_ends) : 0;
    const bool has_data_lines = settle_lines(line_ends.size(), h_min, search, record);
    if (record.median_fields < 2) {
        return has_data_lines;
    }
    measure_regular_table(line_ends, search, record);
    return has_data_lines;
}

bool measure_counts(const std::vector<std::size_t>& counts, HeaderSearch search,
                    StrategyValuation& record) {
    const std::size_t h_min = search.is_on ? detection::get_h_min(counts) : 0;
    record.median_fields = static_cast<std::int32_t>(detection::get_modified_median(counts, h_min));
    const bool has_data_lines = settle_lines(counts.size(), h_min, search, record);
    if (record.median_fields >= 2) {
        measure_table(counts, h_min, search, record);
    }
    return has_data_lines;
}

std::size_t decided_header(const StrategyValuation& record, const std::vector<std::size_t>& diffs,
                           std::size_t h_min, bool is_space_separated) {
    if (record.header_lines != SIZE_MAX) {
        return record.header_lines;
    }
    return record.overall_variation == 0.0
               ? 0
               : detection::get_header_lines(diffs, h_min, is_space_separated);
}

double variation_behind_header(const StrategyValuation& record,
                               const std::vector<std::size_t>& diffs) {
    const std::size_t header_entries = record.header_lines;
    if (header_entries == 0) {
        return record.overall_variation;
    }
    if (header_entries == diffs.size()) {
        return undefined_variation;
    }
    return header_entries < diffs.size() ? mean_from(diffs, header_entries) : 0.0;
}

std::size_t most_fields(const std::vector<std::size_t>& counts, std::size_t header_lines) {
    std::int32_t most = 1;
    for (std::size_t line = header_lines; line < counts.size(); ++line) {
        most = std::max(most, static_cast<std::int32_t>(counts[line]));
    }
    return static_cast<std::size_t>(most);
}

} // namespace textio
