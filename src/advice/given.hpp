/// \file
/// What a host gave, made ready for readings.
#pragma once

#include "advice/positions.hpp"
#include "textio/advice.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <vector>

namespace textio::advice {

/// The options that readings begin with: the host's, with nothing in them that is found out.
[[nodiscard]] parser::options options_of(const Settings& settings);

/// How cells are judged before the marks of numbers are known.
[[nodiscard]] zentor::io::text::typedetection::TypeAnalyzerOptions
type_options_of(const Settings& settings);

/// Columns of given widths, at least one, which all lines keep.
[[nodiscard]] Positions positions_of_widths(const std::vector<std::size_t>& widths,
                                            const FieldArray& lines);

} // namespace textio::advice
