/// \file
/// From the library's answer to the description of a table.
#pragma once

#include "table.hpp"

#include <textio/advice.hpp>
#include <textio/field.hpp>

#include <string>

namespace import_statements {

/// The table that `proposal` sees in `text`. All of the text is looked at: what its cells are, and
/// over what the tools stumble. The caller adds what the text does not tell: the file and how its
/// bytes became text. No column is returned for a text without a row.
[[nodiscard]] Table table_from(const textio::advice::Proposal& proposal, const textio::Field& text);

/// `text` in UTF-8; half a pair of surrogates becomes U+FFFD.
[[nodiscard]] std::string utf8_of(std::u16string_view text);

} // namespace import_statements
