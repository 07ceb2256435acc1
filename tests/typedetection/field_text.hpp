#pragma once

#include "support/text.hpp"
#include "textio/type_analyzer.hpp"

#include <gtest/gtest.h>

namespace zentor::io::text::typedetection {

/// How classes show in the message of a failed case.
inline void PrintTo(FieldClass field_class, std::ostream* stream) {
    constexpr std::array names{
        "0",          "number",        "text",           "datetime",      "4", "unknown", "6", "date", "duration",
        "hex_number", "binary_number", "short_duration", "delimiter_like"};
    *stream << names.at(static_cast<std::size_t>(field_class));
}

} // namespace zentor::io::text::typedetection
