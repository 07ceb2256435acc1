#include "textio/statistics.hpp"
#include "textio/strategy.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>

namespace textio {

namespace {

constexpr double undefined_variation = std::numeric_limits<double>::infinity();

/// Above this, a detected header explains the sample so badly that it is given up.
constexpr double most_data_variation = 1.0;

/// The ends of lines never fall, so the first line that reaches the last end is the last with
/// fields, and it is found without a look at millions of empty lines.
void drop_trailing_empty_lines(std::vector<std::size_t>& line_ends) {
    const std::size_t fields = line_ends.empty() ? 0 : line_ends.back();
    const auto last_filled = std::lower_bound(line_ends.begin(), line_ends.end(), fields);
    line_ends.erase(fields == 0 ? line_ends.begin() : last_filled + 1, line_ends.end());
}

std::vector<std::size_t> fields_per_line(const std::vector<std::size_t>& line_ends) {
    std::vector<std::size_t> counts(line_ends);
    for (std::size_t line = 1; line < counts.size(); ++line) {
        counts[line] = line_ends[line] - line_ends[line - 1];
    }
    return counts;
}

/// Whether each line has `fields` fields. All ends are looked at, for that can be done with several
/// at once.
bool are_alike(const std::vector<std::size_t>& line_ends, std::size_t fields) {
    std::size_t expected = 0;
    std::size_t differences = 0;
    for (const std::size_t end : line_ends) {
        expected += fields;
        differences |= end ^ expected;
    }
    return differences == 0;
}

/// Whether each line has `fields` fields or none.
bool are_alike_or_empty(const std::vector<std::size_t>& line_ends, std::size_t fields) {
    std::size_t before = 0;
    for (const std::size_t end : line_ends) {
        if (end != before && end - before != fields) {
            return false;
        }
        before = end;
    }
    return true;
}

/// How many fields each line with fields has, if all have as many; 0 if they differ, or if there
/// are none. The last end rules most lines that differ out.
std::size_t common_fields(const std::vector<std::size_t>& line_ends) {
    const auto first_filled = std::upper_bound(line_ends.begin(), line_ends.end(), std::size_t{0});
    if (first_filled == line_ends.end() || line_ends.back() % *first_filled != 0) {
        return 0;
    }
    const std::size_t fields = *first_filled;
    const bool all_filled = line_ends.back() / fields == line_ends.size();
    return (all_filled ? are_alike : are_alike_or_empty)(line_ends, fields) ? fields : 0;
}

/// How many lines of one field stand before the first without any.
std::size_t lines_before_empty_one(const std::vector<std::size_t>& line_ends) {
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

/// The sum of the values as if they were added in their order, each as a floating-point number.
/// As long as such a sum is exact, and it is for all but absurd values, whole numbers add up to the
/// same and much faster.
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

} // namespace

StrategyValuation& GenericStrategy::valuation() {
    if (!valuation_cached_) {
        measure_lines();
        if (has_data_lines_) {
            inspect_datatypes();
        }
        valuation_record_.header_lines = header_lines_value_;
        valuation_cached_ = true;
    }
    return valuation_record_;
}

const StrategyValuation& GenericStrategy::measure_lines() {
    if (!lines_measured_) {
        drop_trailing_empty_lines(fields_->line_ends);
        valuation_record_.num_lines = fields_->line_count();
        const std::size_t fields = common_fields(fields_->line_ends);
        const bool header_is_guessed = auto_header_lines_ && header_lines_value_ != SIZE_MAX;
        if (fields != 0 && !header_is_guessed) {
            measure_regular_lines(fields);
        } else {
            measure_counts(fields_per_line(fields_->line_ends));
        }
        lines_measured_ = true;
    }
    return valuation_record_;
}

/// What `measure_counts` finds for lines of which each has `fields` fields or none, and the last
/// has some, without a look at each. No header was guessed before.
void GenericStrategy::measure_regular_lines(std::size_t fields) {
    const std::vector<std::size_t>& line_ends = fields_->line_ends;
    StrategyValuation& record = valuation_record_;
    record.median_fields = static_cast<std::int32_t>(fields);
    const bool has_single_fields = auto_header_lines_ && fields == 1;
    settle_lines(line_ends.size(), has_single_fields ? lines_before_empty_one(line_ends) : 0);
    if (record.median_fields < 2) {
        return;
    }
    if (auto_header_lines_) {
        const auto first_filled =
            std::upper_bound(line_ends.begin(), line_ends.end(), std::size_t{0});
        header_lines_value_ = static_cast<std::size_t>(first_filled - line_ends.begin());
    } else if (header_lines_value_ == SIZE_MAX) {
        header_lines_value_ = 0;
    }
    const std::size_t filled_lines = line_ends.back() / fields;
    const bool is_all_header = !auto_header_lines_ && header_lines_value_ == filled_lines;
    record.overall_variation = 0;
    record.data_variation = is_all_header ? undefined_variation : 0;
    record.num_variables =
        header_lines_value_ < line_ends.size() ? static_cast<std::size_t>(record.median_fields) : 1;
}

void GenericStrategy::measure_counts(const std::vector<std::size_t>& counts) {
    const std::size_t h_min = auto_header_lines_ ? detection::get_h_min(counts) : 0;
    valuation_record_.median_fields =
        static_cast<std::int32_t>(detection::get_modified_median(counts, h_min));
    settle_lines(counts.size(), h_min);
    if (valuation_record_.median_fields >= 2) {
        measure_table(counts, h_min);
    }
}

/// Settles whether there are data lines and, for lines of one field, how many of these are the
/// header.
void GenericStrategy::settle_lines(std::size_t lines, std::size_t h_min) {
    has_data_lines_ = h_min < lines;
    if (auto_header_lines_ && valuation_record_.median_fields < 2) {
        header_lines_value_ = has_data_lines_ ? h_min : 0;
    }
}

void GenericStrategy::measure_table(const std::vector<std::size_t>& counts, std::size_t h_min) {
    StrategyValuation& record = valuation_record_;
    const auto empty_lines = lines_without_fields(counts);
    const auto diffs =
        detection::absolute_differences(counts, static_cast<std::size_t>(record.median_fields));
    if (diffs.empty()) {
        header_lines_value_ = std::max(h_min, detection::adjust_header(0, empty_lines, counts));
        return;
    }
    record.overall_variation = mean_from(diffs, 0);
    calculate_headerlines(diffs, h_min);
    record.data_variation = get_data_variation(diffs);
    if (auto_header_lines_) {
        if (header_lines_value_ > h_min && record.data_variation > most_data_variation) {
            header_lines_value_ = h_min;
            record.data_variation = get_data_variation(diffs);
        }
        // From here on the header is counted in lines of the text, no longer in non-empty lines.
        header_lines_value_ = detection::adjust_header(header_lines_value_, empty_lines, counts);
    }
    record.num_variables = get_number_of_variables(counts);
}

void GenericStrategy::calculate_headerlines(const std::vector<std::size_t>& diffs,
                                            std::size_t h_min) {
    if (header_lines_value_ == SIZE_MAX) {
        header_lines_value_ = valuation_record_.overall_variation == 0.0
                                  ? 0
                                  : detection::get_header_lines(diffs, h_min, space_separated_);
    }
}

double GenericStrategy::get_data_variation(const std::vector<std::size_t>& diffs) const noexcept {
    const std::size_t header_entries = header_lines_value_;
    if (header_entries == 0) {
        return valuation_record_.overall_variation;
    }
    if (header_entries == diffs.size()) {
        return undefined_variation;
    }
    return header_entries < diffs.size() ? mean_from(diffs, header_entries) : 0.0;
}

std::size_t
GenericStrategy::get_number_of_variables(const std::vector<std::size_t>& counts) const noexcept {
    std::int32_t most = 1;
    for (std::size_t line = header_lines_value_; line < counts.size(); ++line) {
        most = std::max(most, static_cast<std::int32_t>(counts[line]));
    }
    return static_cast<std::size_t>(most);
}

} // namespace textio
