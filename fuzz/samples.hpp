/// \file
/// What holds of every sample, and whether two samples are the same.
#pragma once

#include "input.hpp"
#include "textio/field.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace fuzz {

/// Whether `fields` are views of `text`, each behind the one before.
inline void check_order(std::span<const textio::Field> fields, const textio::Field& text) {
    const char16_t* behind = text.data;
    for (const textio::Field& field : fields) {
        require(std::greater_equal<>()(field.data, behind), "a field starts behind the one before");
        behind = field.data + field.size;
    }
    require(std::less_equal<>()(behind, text.data + text.size), "the fields lie in the text");
}

inline void check_sample(const textio::FieldArray& sample, const textio::Field& text) {
    require(std::ranges::is_sorted(sample.line_ends), "line ends never fall");
    const std::size_t last_end = sample.line_ends.empty() ? 0 : sample.line_ends.back();
    require(last_end == sample.fields.size(), "the last line ends at the number of fields");
    check_order(sample.fields, text);
}

/// Whether both have the same lines, and views of the same units of one text as fields.
inline bool equal(const textio::FieldArray& left, const textio::FieldArray& right) {
    return left.line_ends == right.line_ends &&
           std::ranges::equal(left.fields, right.fields,
                              [](const textio::Field& a, const textio::Field& b) {
                                  return a.data == b.data && a.size == b.size;
                              });
}

inline textio::output::DetectionOutputBuilder new_builder(const std::u16string& whitespace) {
    textio::output::DetectionOutputBuilder builder;
    builder.field_array = std::make_unique<textio::FieldArray>();
    builder.whitespace = std::make_unique<std::u16string>(whitespace);
    return builder;
}

} // namespace fuzz
