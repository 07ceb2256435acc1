/// \file
/// What a tool can be told of a file, and what of a table it cannot.
#pragma once

#include "table.hpp"

#include <string>
#include <vector>

namespace import_statements {

/// How a tool takes comments.
enum class Comments {
    none,
    whole_lines,    ///< lines that begin with the sign
    to_end_of_line, ///< one character that cuts off the rest of any line outside quotes
};

/// What a tool can be told or copes with by itself; nothing but plain comma-separated text unless
/// it says so.
struct Abilities {
    bool character_set = false; ///< knows the one of the table
    bool byte_order_mark = false;
    bool replaced_bytes = false;
    bool gzip = false;

    bool aligned = false;
    bool fixed_width = false;
    bool fixed_width_beyond_ascii = false;
    bool long_delimiters = false; ///< of more than one byte
    bool single_blanks = true;    ///< as delimiters, of which two have an empty cell between them
    bool other_quotes = false;    ///< another character than the double quote, or none
    bool quotes_in_positions = false; ///< around cells of fixed widths or between runs of blanks
    bool stray_quotes = false;
    Comments comments = Comments::none;
    bool indented_comments = false; ///< behind blanks

    bool decimal_mark = false;
    bool thousands = false;

    bool many_skipped_lines = true; ///< more than one
    bool skipped_quotes = false;
    bool padded_cells = false;
    bool line_breaks = true;
    bool blank_lines = false;
    bool short_rows = false;
    bool extra_cells = false; ///< in some rows, in columns behind those of the table
    bool lone_returns = false;
    bool mixed_endings = true;
};

/// What of `table` a tool with these abilities cannot be told, each in a few words.
[[nodiscard]] std::vector<std::string> obstacles(const Table& table, const Abilities& abilities);

/// The sign of comments, if a tool that takes them in that way is to know it; otherwise nothing.
[[nodiscard]] std::string comment_to_tell(const Table& table, Comments comments);

/// The table as the command `Table::convert` writes it. For a tool that cannot have extra cells,
/// the command leaves out the rows that have some.
[[nodiscard]] Table converted(const Table& table, const Abilities& abilities);

/// Whether some rows have more cells than the table has columns.
[[nodiscard]] bool has_extra_cells(const Table& table);

} // namespace import_statements
