/// \file
/// The lengths of the lines of a text that was read as one field per line.
#pragma once

#include "textio/field.hpp"

#include <cstddef>

namespace textio::detection {

/// The code that stands for a column's blank.
inline constexpr char16_t blank = u' ';

/// The number of code units on line `line`, 0 for a line without fields.
inline std::size_t line_length(const FieldArray& line_sample, std::size_t line) {
    std::size_t units = 0;
    for (const Field& field : line_sample.line(line)) {
        units += field.size;
    }
    return units;
}

} // namespace textio::detection
