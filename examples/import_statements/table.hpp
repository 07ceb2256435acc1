/// \file
/// A table in a file, described for the tools that are to read it. Plain values, without ICU: what
/// has an answer of the library can fill one in.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace import_statements {

/// How the lines are split.
enum class Kind { delimited, aligned, fixed_width, lines };

/// As what the values of a column are to be read.
enum class Type {
    text,
    integer, ///< of at most 15 digits, so that any tool holds it exactly
    number,
    date,
    date_time,
};

/// How the dates of a column are written, in the words of the tools.
struct DateFormat {
    const char* strptime; ///< C, Python, R, DuckDB and polars
    const char* pattern;  ///< Java
    const char* to_date;  ///< PostgreSQL
    const char* culture;  ///< one in which Excel takes it so
    bool is_utc;          ///< a date and time that ends in Z
};

/// One column. All text is UTF-8.
struct Column {
    std::string name; ///< empty where the file has none
    Type type = Type::text;
    const DateFormat* format = nullptr; ///< of dates; good for ever
    bool is_grouped = false;            ///< numbers with thousands separators
    bool has_missing = false;           ///< some cells are empty, or hold a missing text
    bool is_extra = false;              ///< behind those of the table: a few rows have it
    std::size_t begin = 0;              ///< fixed widths: the first place, from 0, in UTF-16 units
    std::size_t end = 0;                ///< and the one behind the last
};

/// What the looked-at part of a file holds over which some tool stumbles.
struct Troubles {
    bool quoted_cells = false;
    bool stray_quotes = false;      ///< quotes inside cells that are not quoted
    bool doubled_quotes = false;    ///< a quote written twice, inside quotes
    bool line_breaks = false;       ///< inside quotes
    bool padded_cells = false;      ///< blanks around values
    bool comments = false;          ///< between the rows
    bool indented_comments = false; ///< behind blanks
    bool comment_signs = false;     ///< what opens comments, inside rows
    bool blank_lines = false;       ///< between the rows
    bool short_rows = false;        ///< rows that lack cells
    bool long_rows = false;         ///< rows with more cells than columns
    bool skipped_quotes = false;    ///< above the data, a quote that its line does not close
    bool lone_returns = false;      ///< lines that end with a carriage return alone
    bool mixed_endings = false;     ///< some lines end with a carriage return, some do not
    bool beyond_ascii = false;      ///< characters that are none of ASCII
    bool surrogates = false;        ///< characters that are two UTF-16 units
    bool odd_delimiters = false;    ///< runs of delimiters that count as one, or several delimiters
    bool replaced_bytes = false;    ///< bytes that mean nothing in the character set
};

/// A file with a table, and how it is laid out.
struct Table {
    std::string file;               ///< its name, as it is to stand in the statement
    std::string encoding = "UTF-8"; ///< a name that ICU knows
    bool has_mark = false;          ///< starts with a byte order mark
    bool is_gzip = false;

    Kind kind = Kind::delimited;
    std::string delimiter = ",";
    std::string quote = "\"";    ///< empty for none
    std::string comment;         ///< opens a comment; empty for none
    bool block_comments = false; ///< comments are closed by a string of their own
    std::string decimal = ".";
    std::string thousands;            ///< empty for none
    std::size_t skipped_lines = 0;    ///< lines of the text above the data
    std::size_t skipped_comments = 0; ///< those of them that begin like comments
    std::vector<std::string> missing; ///< texts beside the empty one that stand for no value
    std::vector<Column> columns;
    Troubles troubles;

    /// The words of a command that writes the table to its output as comma-separated UTF-8 with a
    /// line of names and decimal points.
    std::vector<std::string> convert;
};

} // namespace import_statements
