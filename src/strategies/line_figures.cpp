#include "strategies/line_figures.hpp"

#include "strategies/column_classes.hpp"
#include "textio/statistics.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>

namespace textio {

using zentor::io::text::typedetection::FieldClass;

namespace {

constexpr double undefined_variation = std::numeric_limits<double>::infinity();

/// Above this, a detected header explains the sample so badly that it is given up.
constexpr double most_data_variation = 1.0;

using LineEnds = std::span<const std::size_t>;

/// The ends of the lines down to the last with fields. Ends never fall, so the first line that
/// reaches the last end is that line, and it is found without a look at millions of empty lines.
LineEnds without_empty_tail(const std::vector<std::size_t>& line_ends) {
    const std::size_t fields = line_ends.empty() ? 0 : line_ends.back();
    const auto last_filled = std::lower_bound(line_ends.begin(), line_ends.end(), fields);
    const auto lines = fields == 0 ? 0 : last_filled + 1 - line_ends.begin();
    return LineEnds(line_ends).first(static_cast<std::size_t>(lines));
}

/// How many lines stand before the first line with fields.
std::size_t lines_before_filled_one(LineEnds line_ends) {
    const auto first_filled = std::upper_bound(line_ends.begin(), line_ends.end(), std::size_t{0});
    return static_cast<std::size_t>(first_filled - line_ends.begin());
}

std::vector<std::size_t> fields_per_line(LineEnds line_ends) {
    std::vector<std::size_t> counts(line_ends.begin(), line_ends.end());
    for (std::size_t line = 1; line < counts.size(); ++line) {
        counts[line] = line_ends[line] - line_ends[line - 1];
    }
    return counts;
}

/// Whether each line has `fields` fields. All ends are looked at, for that can be done with several
/// at once.
bool are_alike(LineEnds line_ends, std::size_t fields) {
    std::size_t expected = 0;
    std::size_t differences = 0;
    for (const std::size_t end : line_ends) {
        expected += fields;
        differences |= end ^ expected;
    }
    return differences == 0;
}

/// Whether each line has `fields` fields or none.
bool are_alike_or_empty(LineEnds line_ends, std::size_t fields) {
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
std::size_t common_fields(LineEnds line_ends) {
    const std::size_t empty_lines = lines_before_filled_one(line_ends);
    if (empty_lines == line_ends.size() || line_ends.back() % line_ends[empty_lines] != 0) {
        return 0;
    }
    const std::size_t fields = line_ends[empty_lines];
    const bool all_filled = line_ends.back() / fields == line_ends.size();
    return (all_filled ? are_alike : are_alike_or_empty)(line_ends, fields) ? fields : 0;
}

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

/// One measuring, which fills in a record.
class Measuring {
public:
    Measuring(const GenericStrategy& strategy, StrategyValuation& record)
        : record_(record), detects_header_(strategy.auto_header_lines()),
          is_space_separated_(strategy.space_separated()) {}

    /// Gives whether there are data lines.
    bool run(LineEnds line_ends) {
        record_.num_lines = line_ends.size();
        const std::size_t fields = common_fields(line_ends);
        const bool header_is_guessed = detects_header_ && record_.header_lines != SIZE_MAX;
        return fields != 0 && !header_is_guessed ? measure_regular_lines(line_ends, fields)
                                                 : measure_counts(fields_per_line(line_ends));
    }

private:
    /// What `measure_counts` finds for lines of which each has `fields` fields or none, and the
    /// last has some, without a look at each. No header was guessed before.
    bool measure_regular_lines(LineEnds line_ends, std::size_t fields) {
        record_.median_fields = static_cast<std::int32_t>(fields);
        const bool has_single_fields = detects_header_ && fields == 1;
        const std::size_t h_min = has_single_fields ? lines_before_empty_one(line_ends) : 0;
        const bool has_data_lines = settle_lines(line_ends.size(), h_min);
        if (record_.median_fields < 2) {
            return has_data_lines;
        }
        if (detects_header_) {
            record_.header_lines = lines_before_filled_one(line_ends);
        } else if (record_.header_lines == SIZE_MAX) {
            record_.header_lines = 0;
        }
        const std::size_t filled_lines = line_ends.back() / fields;
        const bool is_all_header = !detects_header_ && record_.header_lines == filled_lines;
        record_.overall_variation = 0;
        record_.data_variation = is_all_header ? undefined_variation : 0;
        record_.num_variables = record_.header_lines < line_ends.size()
                                    ? static_cast<std::size_t>(record_.median_fields)
                                    : 1;
        return has_data_lines;
    }

    bool measure_counts(const std::vector<std::size_t>& counts) {
        const std::size_t h_min = detects_header_ ? detection::get_h_min(counts) : 0;
        record_.median_fields =
            static_cast<std::int32_t>(detection::get_modified_median(counts, h_min));
        const bool has_data_lines = settle_lines(counts.size(), h_min);
        if (record_.median_fields >= 2) {
            measure_table(counts, h_min);
        }
        return has_data_lines;
    }

    /// Settles whether there are data lines and, for lines of one field, how many of these are the
    /// header.
    bool settle_lines(std::size_t lines, std::size_t h_min) {
        const bool has_data_lines = h_min < lines;
        if (detects_header_ && record_.median_fields < 2) {
            record_.header_lines = has_data_lines ? h_min : 0;
        }
        return has_data_lines;
    }

    void measure_table(const std::vector<std::size_t>& counts, std::size_t h_min) {
        const auto empty_lines = lines_without_fields(counts);
        const auto diffs = detection::absolute_differences(
            counts, static_cast<std::size_t>(record_.median_fields));
        if (diffs.empty()) {
            record_.header_lines =
                std::max(h_min, detection::adjust_header(0, empty_lines, counts));
            return;
        }
        record_.overall_variation = mean_from(diffs, 0);
        record_.header_lines = decided_header(record_, diffs, h_min, is_space_separated_);
        record_.data_variation = variation_behind_header(record_, diffs);
        if (detects_header_) {
            if (record_.header_lines > h_min && record_.data_variation > most_data_variation) {
                record_.header_lines = h_min;
                record_.data_variation = variation_behind_header(record_, diffs);
            }
            // From here on the header is counted in lines of the text, no longer in non-empty
            // lines.
            record_.header_lines =
                detection::adjust_header(record_.header_lines, empty_lines, counts);
        }
        record_.num_variables = most_fields(counts, record_.header_lines);
    }

    StrategyValuation& record_; ///< its header is what the strategy says, and then what is found
    const bool detects_header_;
    const bool is_space_separated_;
};

} // namespace

LineFigures::LineFigures(const GenericStrategy& strategy) : record(strategy.valuation_record()) {
    record.header_lines = strategy.header_lines();
    has_data_lines =
        Measuring(strategy, record).run(without_empty_tail(strategy.field_array()->line_ends));
}

StrategyValuation& LineFigures::settle(GenericStrategy& strategy) const {
    strategy.fields_->line_ends.resize(record.num_lines);
    std::vector<FieldClass> classes;
    if (has_data_lines) {
        classes = find_column_classes(*strategy.fields_, strategy.type_analyzer_, record);
    }
    strategy.valuation_record_ = record;
    count_classes(classes, strategy.valuation_record_);
    strategy.header_lines_value_ = record.header_lines;
    strategy.valuation_cached_ = true;
    return strategy.valuation_record_;
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
