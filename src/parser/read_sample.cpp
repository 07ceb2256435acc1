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
void read_sample_with(output::DetectionOutputBuilder& builder, GenericStrategy& strategy,
                      bool value_it) {
    builder.field_array = std::make_unique<FieldArray>();
    const Reader reader(strategy.options(), std::move(builder.line_marks));
    builder.line_marks = reader.marks;
    if (reader.field_limit != SIZE_MAX) {
        builder.limit_fields = true;
        builder.field_limit = reader.field_limit;
    }
    if (builder.whitespace == nullptr) {
        builder.whitespace = std::make_unique<std::u16string>();
    }
    *builder.whitespace = strategy.options().whitespace;
    Field text = *builder.text;
    read_records(strategy.options(), reader, rows_to_read(builder, strategy), SIZE_MAX, text,
                 builder);
    strategy.field_array(std::move(builder.field_array));
    if (value_it) {
        strategy.valuation();
    }
    builder.limit_fields = false;
    builder.field_limit = SIZE_MAX;
}

} // namespace

void read_sample(output::DetectionOutputBuilder& builder, std::shared_ptr<GenericStrategy> strategy,
                 bool value_it) {
    if (strategy->has_fields()) {
        return;
    }
    switch (strategy->mode()) {
    case enums::StrategyMode::delimited:
    case enums::StrategyMode::space_aligned:
        return read_sample_with<DelimitedRecordReader>(builder, *strategy, value_it);
    case enums::StrategyMode::fixed_width:
        return read_sample_with<FixedWidthRecordReader>(builder, *strategy, value_it);
    case enums::StrategyMode::line_reader:
        return read_sample_with<LineRecordReader>(builder, *strategy, value_it);
    }
}

} // namespace textio::parser
