/// \file
/// The figures by which readings of a text are compared.
#pragma once

#include "textio/export.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace textio {

/// What a sample looked like when it was read under one layout. Plain numbers, and all that the
/// rules that choose between layouts ever see.
struct TEXTIO_EXPORT StrategyValuation {
    /// A record of a reading that nothing is known about yet.
    StrategyValuation() = default;

    /// Whether any column is one of dates, with or without a time of day, or of durations.
    [[nodiscard]] bool has_dates() const noexcept {
        return temporal_variables > 0 || datetime_variables > 0;
    }

    /// The share of the columns that got any class but `unknown`.
    [[nodiscard]] double classified_share() const noexcept {
        return static_cast<double>(classified_variables) / static_cast<double>(num_variables);
    }

    /// Mean distance of a line's field count from `median_fields`, over the non-empty lines down to
    /// the last that has exactly `median_fields` fields.
    double overall_variation = std::numeric_limits<double>::infinity();

    /// The same mean without the header; 0 means a perfectly regular table, infinity that the
    /// sample shows no table at all.
    double data_variation = std::numeric_limits<double>::infinity();

    /// Lines of the sample, trailing empty lines not counted.
    std::size_t num_lines = 0;

    /// The typical number of fields on a line; below 2 means one field per line.
    std::int32_t median_fields = 1;

    /// The number of columns: the most fields on any line behind the header, at least 1.
    std::size_t num_variables = 1;

    std::uint32_t classified_variables = 0;  ///< columns with any class but `unknown`
    std::uint32_t temporal_variables = 0;    ///< columns of dates or durations
    std::uint32_t numeric_variables = 0;     ///< columns of numbers
    std::uint32_t datetime_variables = 0;    ///< columns of dates with a time of day
    std::uint32_t punctuation_variables = 0; ///< columns of lone delimiters

    /// How much the layout is preferred before any data is seen; lower is better.
    double prior_rank = std::numeric_limits<double>::infinity();

    /// The header, in lines of the text; `SIZE_MAX` until it is decided.
    std::size_t header_lines = SIZE_MAX;
};

} // namespace textio
