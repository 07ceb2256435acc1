/// \file
/// Texts, samples and layouts as tests write and print them.
#pragma once

#include "textio/field.hpp"
#include "textio/strategy.hpp"

#include <array>
#include <string>
#include <string_view>

namespace test {

/// ASCII as it is, everything else as an escape.
inline std::string shown(std::u16string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    for (const char16_t unit : text) {
        if (unit == u'\n' || unit == u'\r' || unit == u'\t') {
            out += unit == u'\n' ? "\\n" : unit == u'\r' ? "\\r" : "\\t";
        } else if (unit >= u' ' && unit < 0x7F) {
            out += static_cast<char>(unit);
        } else {
            out += "\\u";
            for (const int shift : {12, 8, 4, 0}) {
                out += digits[(unit >> shift) & 0xFU];
            }
        }
    }
    return out;
}

/// A sample on one line: fields in brackets, a line's fields without anything between, and `/`
/// behind each line.
inline std::string shown(const textio::FieldArray& sample) {
    std::string out;
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        for (const textio::Field& field : sample.line(line)) {
            out += "[" + shown(field.view()) + "]";
        }
        out += "/";
    }
    return out;
}

/// A layout in a few words: kind, delimiter or widths, header lines, variables.
inline std::string shown(const textio::GenericStrategy& strategy) {
    constexpr std::array kinds{"by", "aligned", "widths", "lines"};
    std::string out = kinds.at(static_cast<std::size_t>(strategy.mode()));
    if (strategy.mode() == textio::enums::StrategyMode::delimited) {
        out += " '" + shown(strategy.options().delimiters.front()) + "'";
    }
    for (const std::size_t width : strategy.options().field_widths) {
        out += " " + std::to_string(width);
    }
    const std::size_t variables = strategy.num_variables();
    return out + ", header " + std::to_string(strategy.header_lines()) + ", " +
           (variables == SIZE_MAX ? "not valued" : std::to_string(variables) + " variables");
}

} // namespace test
