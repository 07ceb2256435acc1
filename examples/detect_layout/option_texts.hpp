#pragma once

#include "settings.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace detect_layout {

/// Options whose texts need a second look once all of them are known. Absent ones are null.
struct OptionTexts {
    std::optional<std::string> quote;
    std::optional<std::string> decimal;
    std::optional<std::string> thousands;
    std::optional<std::string> whitespace;
    std::optional<std::string> delimiter;
    std::optional<std::string> excluded_delimiter;
    std::optional<std::string> layout;
    std::optional<std::string> encoding;
    std::optional<std::size_t> header_lines;
    std::optional<std::size_t> names_line;      ///< from 1, 0 for none
    std::optional<std::size_t> first_data_line; ///< from 1
    std::optional<std::size_t> expected_variables;
    std::optional<std::string> comment;
    std::optional<std::string> comment_end;
    std::vector<std::size_t> widths;
    std::vector<std::string> missing;
    bool no_comments = false;
};

/// Puts what `texts` say into `settings`, for either answer. Throws `UserError` for what makes no
/// sense, alone or with the rest.
void apply(const OptionTexts& texts, Settings& settings);

} // namespace detect_layout
