/// \file
/// The delimiters and quotes that a text suggests.
#pragma once

#include "advice/survey.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace textio::advice {

/// A delimiter worth trying.
struct Separator {
    std::u16string text;
    double prior = 0; ///< how seldom it stands in ordinary text
    double share = 0; ///< the share of the surveyed lines that hold it
};

/// The delimiters that stand on enough of the surveyed lines, likeliest first.
[[nodiscard]] std::vector<Separator> suggested_separators(const Survey& survey);

/// Whether a delimiter stands on one of the surveyed lines.
[[nodiscard]] bool occurs(const Survey& survey, std::u16string_view delimiter);

/// A delimiter that was asked for, with its prior.
[[nodiscard]] Separator named_separator(const Survey& survey, std::u16string_view delimiter);

/// Whether `quote` frames the fields of half the lines: it meets itself across the delimiter, or
/// begins or ends the line.
[[nodiscard]] bool frames_fields(const Survey& survey, char16_t quote,
                                 std::u16string_view delimiter);

/// Whether `quote` stands around fields of `lines`, be they few: more often at the ends of fields
/// than alone within them, as an apostrophe does.
[[nodiscard]] bool frames_some_fields(const FieldArray& lines, char16_t quote,
                                      std::u16string_view delimiter);

} // namespace textio::advice
