/// \file
/// What a column holds, judged by all values that are looked at.
#pragma once

#include "date_formats.hpp"
#include "table.hpp"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace import_statements {

/// The marks of the numbers of a table; 0 for none.
struct NumberMarks {
    char16_t decimal = u'.';
    char16_t thousands = 0;
};

/// Collects what speaks for a type of a column. A type is given only if every value is of it: the
/// tools read a column as a whole, and a value that is none of its numbers would be lost or stop
/// them. What a tool would change, such as zeros in front of a code, is text.
class ColumnJudge {
public:
    explicit ColumnJudge(NumberMarks marks) : marks_(marks) {}

    /// Looks at a value, without blanks around it.
    void add(std::u16string_view value);

    /// Counts a cell without a value.
    void add_missing() { has_missing_ = true; }

    /// The texts that stand for no value, such as `NA`, if the column is none of text.
    [[nodiscard]] const std::set<std::u16string>& stand_ins() const noexcept { return stand_ins_; }

    /// Puts type, format and what else was found into `column`.
    void tell(Column& column) const;

private:
    NumberMarks marks_;
    std::size_t values_ = 0;
    bool are_integers_ = true;
    bool are_numbers_ = true;
    bool are_grouped_ = false;
    bool has_missing_ = false;
    DateFormats formats_ = ~DateFormats{0};
    std::set<std::u16string> stand_ins_;
};

} // namespace import_statements
