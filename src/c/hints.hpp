/// \file
/// What a caller has said about a text, and what the two doors make of it.
#pragma once

#include "textio/advice.hpp"
#include "textio/c.h"
#include "textio/options.hpp"
#include "textio/strategy.hpp"
#include "textio/type_analyzer.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace textio::c {

/// Which door is asked.
enum class Method : std::uint8_t { advice, rules };

/// Rows that are sampled where nobody says another number.
inline constexpr std::size_t usual_rows = 250;

} // namespace textio::c

/// Each member has the name of its hint.
struct textio_hints {
    std::optional<textio::c::Method> method;
    std::optional<std::size_t> rows;
    std::optional<textio::enums::StrategyMode> kind;
    std::optional<std::u16string> delimiter;
    std::optional<std::vector<std::size_t>> widths;
    std::optional<char16_t> quote;             ///< 0 for none
    std::optional<std::u16string> comment;     ///< empty for none
    std::optional<std::u16string> comment_end; ///< empty for the end of the line
    std::optional<char16_t> decimal;
    std::optional<char16_t> thousands; ///< 0 for none
    std::optional<std::u16string> whitespace;
    std::optional<std::vector<std::u16string>> missing;
    std::optional<std::size_t> first_data_line;
    std::optional<std::size_t> names_line; ///< `advice::no_line` for none
};

namespace textio::c {

/// Throws `Failure` if two hints contradict each other, or the method cannot be told of one.
void check(const textio_hints& hints);

/// What `advise` is told.
[[nodiscard]] advice::Settings settings_of(const textio_hints& hints);

/// What the rules are told.
struct RulesSettings {
    parser::options options;
    zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
};

/// The same for the rules, which take what nobody says for usual.
[[nodiscard]] RulesSettings rules_settings_of(const textio_hints& hints);

} // namespace textio::c
