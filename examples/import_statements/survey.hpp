/// \file
/// Over what in a text the tools would stumble.
#pragma once

#include "table.hpp"

#include <textio/field.hpp>
#include <textio/options.hpp>

#include <cstddef>
#include <span>
#include <string_view>

namespace import_statements {

/// Looks at the rows of a text, and at what lies between them, and notes the troubles of its table.
class Survey {
public:
    /// All three must outlive the survey. The lines above the data are looked at here.
    Survey(Table& table, const textio::parser::options& options, std::u16string_view text);

    /// Looks at the next row: its raw fields, which view the text, and what is in front of it.
    void add(std::span<const textio::Field> fields);

private:
    void look_at_lines_above(Table& table);
    void look_at_ends(std::u16string_view text);
    void look_between(std::u16string_view gap);
    void look_at_cell(std::u16string_view cell);
    void look_at_quoted(std::u16string_view cell);

    Troubles& troubles_;
    const std::size_t columns_;
    const bool is_aligned_;
    const bool has_positions_;
    const textio::parser::options& options_;
    std::u16string_view text_;
    std::u16string_view opener_; ///< of comments; empty for none
    std::size_t place_ = 0;      ///< behind the row before, or the lines above
    bool has_pairs_ = false;     ///< lines end with a carriage return and a line feed
    bool has_lone_feeds_ = false;
    bool at_line_start_ = true; ///< no row has been looked at yet
};

} // namespace import_statements
