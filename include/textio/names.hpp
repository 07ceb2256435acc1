/// \file
/// The words for what an answer says, as hosts show and store them: lower case, with `_` between
/// parts. Each text ends with a 0 and is valid for ever.
#pragma once

#include "textio/export.hpp"
#include "textio/reading.hpp"
#include "textio/strategy.hpp"
#include "textio/type_analyzer.hpp"

#include <optional>
#include <string_view>

namespace textio {

/// `delimited`, `space_aligned`, `fixed_width` or `line`.
[[nodiscard]] TEXTIO_EXPORT std::string_view name_of(enums::StrategyMode kind) noexcept;

/// `number`, `datetime`, ...: as the values are called in C++; `unknown` for one that is none.
[[nodiscard]] TEXTIO_EXPORT std::string_view
name_of(zentor::io::text::typedetection::FieldClass type) noexcept;

/// `none`, `too_few_fields`, ...: as the values are called in C++.
[[nodiscard]] TEXTIO_EXPORT std::string_view name_of(reading::Fault fault) noexcept;

/// `not_yet`, `of_text`, ...: as the values are called in C++.
[[nodiscard]] TEXTIO_EXPORT std::string_view name_of(reading::End end) noexcept;

/// What speaks against a reading of that kind if the factor `term` of its score is low, for people:
/// `few rows`. A term of no known name is given back as it is.
[[nodiscard]] TEXTIO_EXPORT std::string_view doubt_about(std::string_view term,
                                                         enums::StrategyMode kind) noexcept;

/// The kind of layout of that name; nothing for another word.
[[nodiscard]] TEXTIO_EXPORT std::optional<enums::StrategyMode>
kind_named(std::string_view name) noexcept;

/// The policy of that name: `keep`, `pad`, `skip` or `stop`; nothing for another word.
[[nodiscard]] TEXTIO_EXPORT std::optional<reading::Policy>
policy_named(std::string_view name) noexcept;

} // namespace textio
