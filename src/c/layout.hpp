/// \file
/// What a layout tells: copies that do not need the text.
#pragma once

#include "textio/advice.hpp"
#include "textio/c.h"
#include "textio/field.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace textio::c {

/// A text that may be missing, in UTF-8.
using OptionalText = std::optional<std::string>;

/// One column, as it is told.
struct ToldColumn {
    std::string name;
    std::string_view type; ///< ends with a 0
    std::size_t values;
    std::size_t missing;
};

/// One factor of a score, as it is told.
struct ToldTerm {
    std::string name;
    double value;
};

/// One proposal, as it is told. The members have the names under which they are told.
struct ToldProposal {
    std::string_view kind; ///< ends with a 0
    OptionalText delimiter;
    std::vector<std::size_t> widths;
    OptionalText quote;
    OptionalText comment;
    OptionalText comment_end;
    OptionalText decimal;
    OptionalText thousands;
    std::vector<ToldColumn> columns;
    std::vector<ToldTerm> terms;
    std::string why;
    advice::Proposal reading; ///< all else; without its sample and its names
};

} // namespace textio::c

struct textio_layout {
    std::vector<textio::c::ToldProposal> proposals; ///< best first; never empty
    std::optional<double> confidence;               ///< nothing under the rules
    bool is_table = false;
    std::size_t data_rows = 0;
    std::string json;

    [[nodiscard]] bool is_by_rules() const noexcept { return !confidence.has_value(); }
};

namespace textio::c {

/// What is told of a proposal, whose names of columns it takes away, as they view the text.
[[nodiscard]] ToldProposal told(advice::Proposal&& proposal);

/// A sentence on what speaks for a proposal, and what against it.
[[nodiscard]] std::string reason_for(const advice::Proposal& proposal);

/// Writes all that `layout` tells.
[[nodiscard]] std::string json_of(const textio_layout& layout);

/// The rows with data in the sample of `proposal`, which was read from `text`.
[[nodiscard]] std::size_t count_data_rows(const advice::Proposal& proposal, const Field& text);

} // namespace textio::c
