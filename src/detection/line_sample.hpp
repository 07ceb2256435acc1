/// \file
/// The lengths of the lines of a text that was read as one field per line.
#pragma once

#include "textio/field.hpp"

#include <cstddef>
#include <span>

namespace textio::detection {

/// The code that stands for a column's blank.
inline constexpr char16_t blank = u' ';

/// The number of code units of all `fields`, 0 for none.
inline std::size_t length_of(std::span<const Field> fields) {
    std::size_t units = 0;
    for (const Field& field : fields) {
        units += field.size;
    }
    return units;
}

/// The number of code units on line `line`, 0 for a line without fields.
inline std::size_t line_length(const FieldArray& line_sample, std::size_t line) {
    return length_of(line_sample.line(line));
}

} // namespace textio::detection
