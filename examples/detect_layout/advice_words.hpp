#pragma once

#include "textio/advice.hpp"
#include "textio/type_analyzer.hpp"

#include <string>
#include <string_view>

namespace detect_layout {

/// How far an answer can be relied on, and what it could be instead.
[[nodiscard]] std::string confidence_phrase(const textio::advice::Advice& advice);

/// Whether a person should look at an answer before it is relied on.
[[nodiscard]] bool is_doubtful(const textio::advice::Advice& advice) noexcept;

/// A class of values for a program: `number`, `date`, `short_duration`.
[[nodiscard]] std::string_view
class_name(zentor::io::text::typedetection::FieldClass type) noexcept;

/// What a column holds and how much is missing, as in `number, 3 of 20 missing`.
[[nodiscard]] std::string column_phrase(const textio::advice::Column& column);

/// A mark inside of numbers: `point`, `comma`, `apostrophe`.
[[nodiscard]] std::string mark_name(char16_t mark);

/// What the rows and columns of a proposal look like, as in `99 % of rows have 6 fields, 5 of 6
/// columns hold numbers, 1 text`.
[[nodiscard]] std::string evidence_phrase(const textio::advice::Proposal& proposal);

/// What lowers the score of a proposal, with the factors; `nothing` if nothing does.
[[nodiscard]] std::string doubts_phrase(const textio::advice::Proposal& proposal);

} // namespace detect_layout
