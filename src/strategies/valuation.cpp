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
    const auto last_filled = std::ranges::lower_bound(line_ends, fields);
    line_ends.erase(fields == 0 ? line_ends.begin() : last_filled + 1, line_ends.end());
}

std::vector<std::size_t> fields_per_line(const std::vector<std::size_t>& line_ends) {
    std::vector<std::size_t> counts(line_ends);
    for (std::size_t line = 1; line < counts.size(); ++line) {
        counts[line] = line_ends[line] - line_ends[line - 1];
    }
    return counts;
}

/// Whether there are lines, and each has as many fields as the first. The last end rules most
/// others out; all ends are looked at then, for that can be done with several at once.
bool are_alike(const std::vector<std::size_t>& line_ends) {
    if (line_ends.empty() || line_ends.back() != line_ends.front() * line_ends.size()) {
        return false;
    }
    std::size_t expected = 0;
    std::size_t differences = 0;
    for (const std::size_t end : line_ends) {
        expected += line_ends.front();
        differences |= end ^ expected;
    }
    return differences == 0;
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
        if (are_alike(fields_->line_ends)) {
            measure_regular_lines(fields_->line_count(), fields_->line_ends.front());
        } else {
            measure_counts(fields_per_line(fields_->line_ends));
        }
        lines_measured_ = true;
    }
    return valuation_record_;
}

/// What `measure_counts` finds for one or more lines of `fields` fields each, without a look at
/// each.
void GenericStrategy::measure_regular_lines(std::size_t lines, std::size_t fields) {
    StrategyValuation& record = valuation_record_;
    record.median_fields = static_cast<std::int32_t>(fields);
    has_data_lines_ = fields > 1 || !auto_header_lines_;
    if (record.median_fields < 2) {
        header_lines_value_ = auto_header_lines_ ? 0 : header_lines_value_;
        return;
    }
    const bool is_all_header = header_lines_value_ == lines;
    if (header_lines_value_ == SIZE_MAX || (is_all_header && auto_header_lines_)) {
        header_lines_value_ = 0;
    }
    record.overall_variation = 0;
    record.data_variation = header_lines_value_ == lines ? undefined_variation : 0;
    record.num_variables =
        header_lines_value_ < lines ? static_cast<std::size_t>(record.median_fields) : 1;
}

void GenericStrategy::measure_counts(const std::vector<std::size_t>& counts) {
    const std::size_t h_min = auto_header_lines_ ? detection::get_h_min(counts) : 0;
    has_data_lines_ = !counts.empty(); // if each had one field, they would be alike
    valuation_record_.median_fields =
        static_cast<std::int32_t>(detection::get_modified_median(counts, h_min));
    if (valuation_record_.median_fields >= 2) {
        measure_table(counts, h_min);
    } else if (auto_header_lines_) {
        header_lines_value_ = h_min;
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
