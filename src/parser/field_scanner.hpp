/// \file
/// Finds one field of delimited text.
#pragma once

#include "search/boundary_scanner.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <memory>
#include <string>

namespace textio::parser {

/// What tells a field from the next.
struct FieldScanner {
    FieldScanner(const options& options, std::shared_ptr<Delim> delimiters,
                 std::shared_ptr<Delim> line_ends);

    char16_t quote;
    BoundaryScanner bounds;    ///< ends at delimiters; a line ending stays in front
    std::u16string whitespace; ///< may stand in front of an opening quote
    UnitSearch blanks;         ///< finds the same
    UnitSearch quotes;         ///< finds the quote
};

/// The position where the field behind the one at `start` starts. `field_size` becomes the length
/// of the field at `start`: up to the first delimiter or line ending outside a quoted part, with
/// blanks and quotes. A quoted part can only begin a field, behind blanks; a doubled quote does not
/// end it.
std::size_t scan_field(const FieldScanner& scanner, const Field& text, std::size_t start,
                       std::size_t& field_size);

} // namespace textio::parser
