/// \file
/// Records of one length without blank columns between their fields, as of banks and registers.
#pragma once

#include "advice/positions.hpp"
#include "textio/field.hpp"

#include <optional>

namespace textio::advice {

/// The lines as records of one length, if most of them have it, and blanks or changes of the kind
/// of character on all lines show that there are fields. Columns start where the kind changes.
[[nodiscard]] std::optional<Positions> find_records_of_one_length(const FieldArray& lines);

} // namespace textio::advice
