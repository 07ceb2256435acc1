/// \file
/// Finds the fields of delimited text: where one ends, and where a run of delimiters ends.
#pragma once

#include "parser/boundary_scanner.hpp"
#include "parser/guarded_delim.hpp"
#include "parser/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <memory>
#include <string>

namespace textio::parser {

/// Finds one field.
struct FieldScanner {
    FieldScanner(const options& options, const std::shared_ptr<Delim>& delimiters,
                 const std::shared_ptr<Delim>& line_ends);

    char16_t quote;
    BoundaryScanner bounds;    ///< ends at delimiters; a line ending stays in front
    std::u16string whitespace; ///< may stand in front of an opening quote
    UnitSet blank_units;       ///< the same
    UnitSearch quotes;         ///< finds the quote

    /// Units at whose place a field may be more than a run up to the next boundary: blanks, the
    /// quote, what begins a line ending, and the end of the text.
    UnitSet special_starts;
};

/// The end of a field that begins with one of the special units.
Boundary find_end_of_special_field(const FieldScanner& scanner, const Field& text,
                                   std::size_t start);

/// The position where the field behind the one at `start` starts. `field_size` becomes the length
/// of the field at `start`: up to the first delimiter or line ending outside a quoted part, with
/// blanks and quotes. A quoted part can only begin a field, behind blanks; a doubled quote does not
/// end it.
inline std::size_t scan_field(const FieldScanner& scanner, const Field& text, std::size_t start,
                              std::size_t& field_size) {
    const Boundary boundary = scanner.special_starts.contains(text.unit_at(start))
                                  ? find_end_of_special_field(scanner, text, start)
                                  : scanner.bounds.find_from_text(text, start);
    field_size = boundary.at - start;
    return boundary.at + boundary.length;
}

/// Finds the end of a run of delimiters.
class DelimiterRuns {
public:
    explicit DelimiterRuns(const std::shared_ptr<Delim>& delimiters);

    /// The position behind the run of delimiters at `position`, which may be none. Never moves from
    /// a position at or past the end of the text.
    [[nodiscard]] std::size_t skip(const Field& text, std::size_t position) const noexcept {
        if (position >= text.size || !delimiters_.first_units().contains(text.data[position])) {
            return position;
        }
        return only_lone_units_ ? others_.next(text, position) : skip_strings(text, position);
    }

    void remember_block(bool remember) const noexcept { others_.remember_block(remember); }

private:
    [[nodiscard]] std::size_t skip_strings(const Field& text, std::size_t position) const noexcept;

    GuardedDelim delimiters_;
    UnitSearch others_; ///< finds what is no delimiter, where every delimiter is one unit
    bool only_lone_units_;
};

} // namespace textio::parser
