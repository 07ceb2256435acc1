#include "parser/read_sample.hpp"

#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"

#include <cstdint>
#include <utility>

namespace textio::parser {

namespace {

std::size_t rows_to_read(const output::DetectionOutputBuilder& builder,
                         const GenericStrategy& strategy) {
    const std::size_t header = strategy.auto_header_lines() ? 0 : strategy.header_lines();
    return header < SIZE_MAX - builder.sample_lines ? builder.sample_lines + header : SIZE_MAX;
}

template <class Reader>
void read_sample_with(output::DetectionOutputBuilder& builder, const Reader& reader,
                      GenericStrategy& strategy, bool value_it) {
    Field text = *builder.text;
    if (builder.whitespace == nullptr) {
        builder.whitespace = std::make_unique<std::u16string>();
    }
    *builder.whitespace = strategy.options().whitespace;
    read_records(strategy.options(), reader, rows_to_read(builder, strategy), SIZE_MAX, text,
                 builder);
    strategy.field_array(std::move(builder.field_array));
    if (value_it) {
        strategy.valuation();
    }
}

} // namespace

void read_sample(output::DetectionOutputBuilder& builder, std::shared_ptr<GenericStrategy> strategy,
                 bool value_it) {
    if (strategy->has_fields()) {
        return;
    }
    builder.field_array = std::make_unique<FieldArray>();
    const options& options = strategy->options();
    builder.line_marks = LineMarks::of(options, std::move(builder.line_marks));
    switch (strategy->mode()) {
    case enums::StrategyMode::delimited:
    case enums::StrategyMode::space_aligned:
        read_sample_with(builder, DelimitedRecordReader(options, builder.line_marks), *strategy,
                         value_it);
        break;
    case enums::StrategyMode::fixed_width:
        builder.limit_fields = true;
        builder.field_limit = options.field_widths.size();
        read_sample_with(builder, FixedWidthRecordReader(options, builder.line_marks), *strategy,
                         value_it);
        break;
    case enums::StrategyMode::line_reader:
        read_sample_with(builder, LineRecordReader(options, builder.line_marks), *strategy,
                         value_it);
        break;
    }
    builder.limit_fields = false;
    builder.field_limit = SIZE_MAX;
}

} // namespace textio::parser
