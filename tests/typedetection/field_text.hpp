#pragma once

#include "textio/type_analyzer.hpp"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <string_view>

/// How texts and classes show in the message of a failed case.
inline std::string readable(std::u16string_view text) {
    return testing::PrintToString(std::u16string(text));
}

namespace zentor::io::text::typedetection {

inline void PrintTo(FieldClass field_class, std::ostream* stream) {
    constexpr std::array names{
        "0",          "number",        "text",           "datetime",      "4", "unknown", "6", "date", "duration",
        "hex_number", "binary_number", "short_duration", "delimiter_like"};
    *stream << names.at(static_cast<std::size_t>(field_class));
}

} // namespace zentor::io::text::typedetection
