#include "textio/strategy.hpp"

#include "unseen_fields.hpp"

#include <utility>

namespace textio {

GenericStrategy::GenericStrategy(
    const parser::options& options,
    const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
    enums::StrategyMode mode)
    : options_(options), auto_header_lines_(options.detect_header_lines),
      header_lines_value_(options.header_lines), type_analyzer_(type_options), mode_(mode) {}

GenericStrategy::~GenericStrategy() {
    if (fields_) {
        free_without_a_look(fields_->fields);
    }
}

void GenericStrategy::header_lines(std::size_t lines) noexcept {
    header_lines_value_ = mode_ == enums::StrategyMode::line_reader ? 0 : lines;
    auto_header_lines_ = header_lines_value_ == SIZE_MAX;
}

std::size_t GenericStrategy::num_variables() const noexcept {
    return valuation_cached_ ? valuation_record_.num_variables : SIZE_MAX;
}

void GenericStrategy::field_array(std::unique_ptr<FieldArray> fields) noexcept {
    has_fields_ = true;
    fields_ = std::move(fields);
}

void GenericStrategy::reset_whitespace(const std::u16string& whitespace) {
    type_analyzer_.reset_whitespace(whitespace);
}

} // namespace textio
