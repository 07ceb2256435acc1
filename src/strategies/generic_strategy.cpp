#include "textio/strategy.hpp"

#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace textio {

namespace {

/// Frees the memory of `fields` without a look at them. The vector itself would call the destructor
/// of each, which is virtual and does nothing, and fetch millions of fields for it. So it is moved
/// to where no destructor waits for it.
void free_without_a_look(std::vector<Field>& fields) noexcept {
    using Fields = std::vector<Field>;
    static_assert(std::is_same_v<Fields::allocator_type, std::allocator<Field>>);
    alignas(Fields) std::array<std::byte, sizeof(Fields)> room{};
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): what is made here takes no memory.
    auto* const taken = ::new (room.data()) Fields(std::move(fields));
    if (taken->capacity() > 0) {
        std::allocator<Field>().deallocate(taken->data(), taken->capacity());
    }
}

} // namespace

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
