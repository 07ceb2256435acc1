/// \file
/// The errors of the record readers. They are thrown by value, and only under a rule value that
/// asks for an error; no layout that detection tries reads under one.
#pragma once

#include <cstddef>
#include <string>

namespace textio::parser::exception {

/// What every parser error tells.
struct parser_exception {
    std::size_t record = 0; ///< rows read before the error, where that is known
    std::size_t field = 0;  ///< fields finished in the failed record, where that is known
    std::u16string text;    ///< always empty
    std::u16string detail;  ///< empty but in `partial_field_error`
};

/// An empty line where none may be.
struct empty_line_rule : parser_exception {};

/// A delimiter at the very start of a record.
struct leading_delimiters_error : parser_exception {};

/// An empty field at the end of a record.
struct trailing_delimiters_error : parser_exception {};

/// A delimiter right behind a delimiter.
struct consecutive_delimiters_error : parser_exception {};

/// A line that ends inside a fixed-width field.
struct partial_field_error : parser_exception {};

} // namespace textio::parser::exception
