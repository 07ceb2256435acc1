/// \file
/// Texts and samples as tests write and print them.
#pragma once

#include "textio/field.hpp"

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

} // namespace test
