#include "strategies/line_figures.hpp"

#include "strategies/column_classes.hpp"
#include "strategies/measuring.hpp"

#include <algorithm>

namespace textio {

using zentor::io::text::typedetection::FieldClass;

namespace {

/// The ends of the lines down to the last with fields. Ends never fall, so the first line that
/// reaches the last end is that line, and it is found without a look at millions of empty lines.
LineEnds without_empty_tail(const std::vector<std::size_t>& line_ends) {
    const std::size_t fields = line_ends.empty() ? 0 : line_ends.back();
    const auto last_filled = std::lower_bound(line_ends.begin(), line_ends.end(), fields);
    const auto lines = fields == 0 ? 0 : last_filled + 1 - line_ends.begin();
    return LineEnds(line_ends).first(static_cast<std::size_t>(lines));
}

std::vector<std::size_t> fields_per_line(LineEnds line_ends) {
    std::vector<std::size_t> counts(line_ends.begin(), line_ends.end());
    for (std::size_t line = 1; line < counts.size(); ++line) {
        counts[line] = line_ends[line] - line_ends[line - 1];
    }
    return counts;
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
/// are none. Where they differ, the number of all fields most often says so already.
std::size_t common_fields(LineEnds line_ends) {
    const std::size_t empty_lines = lines_before_filled_one(line_ends);
    if (empty_lines == line_ends.size() || line_ends.back() % line_ends[empty_lines] != 0) {
        return 0;
    }
    const std::size_t fields = line_ends[empty_lines];
    return are_alike_or_empty(line_ends, fields) ? fields : 0;
}

/// Fills in the record, and gives whether there are data lines.
bool measure(LineEnds line_ends, HeaderSearch search, StrategyValuation& record) {
    record.num_lines = line_ends.size();
    const std::size_t fields = common_fields(line_ends);
    const bool header_is_guessed = search.is_on && record.header_lines != SIZE_MAX;
    return fields != 0 && !header_is_guessed
               ? measure_regular_lines(line_ends, fields, search, record)
               : measure_counts(fields_per_line(line_ends), search, record);
}

/// The record of `strategy`, with the header that the strategy has now.
StrategyValuation record_to_fill(const GenericStrategy& strategy) {
    StrategyValuation record = strategy.valuation_record();
    record.header_lines = strategy.header_lines();
    return record;
}

} // namespace

LineFigures::LineFigures(const GenericStrategy& strategy)
    : record(record_to_fill(strategy)),
      has_data_lines(measure(without_empty_tail(strategy.field_array()->line_ends),
                             {strategy.auto_header_lines(), strategy.space_separated()}, record)) {}

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

} // namespace textio
