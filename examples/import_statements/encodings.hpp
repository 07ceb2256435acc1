/// \file
/// The names that the tools have for character sets.
#pragma once

#include <string>
#include <string_view>

namespace import_statements {

/// What a character set is called; null where the tool does not know it.
struct Encoding {
    const char* icu;    ///< as in `Table::encoding`
    const char* python; ///< also what polars hands on to Python
    const char* r;      ///< for readr, whose names are those of iconv; Java has them too
    const char* postgres;
    const char* code_page; ///< Windows, for Excel
};

/// What the tools call the set with ICU's name; that name for Python, R and Java, and nothing for
/// the others, if it is no usual one.
[[nodiscard]] Encoding encoding_of(const std::string& icu_name);

/// Whether the bytes of a text in it are those of UTF-8.
[[nodiscard]] bool is_utf8(std::string_view icu_name);

} // namespace import_statements
