#include "abilities.hpp"

#include "encodings.hpp"

#include <algorithm>
#include <utility>

namespace import_statements {

namespace {

/// What of a table a tool may not be able to be told: whether the table has it and the tool can,
/// and what it is called.
struct Demand {
    bool is_made;
    bool is_met;
    const char* what;
};

bool holds_numbers(const Table& table) {
    return std::any_of(table.columns.begin(), table.columns.end(), [](const Column& column) {
        return column.type == Type::number || column.is_grouped;
    });
}

bool holds_groups(const Table& table) {
    return std::any_of(table.columns.begin(), table.columns.end(),
                       [](const Column& column) { return column.is_grouped; });
}

std::vector<Demand> demands_of_text(const Table& table, const Abilities& can) {
    const Troubles& has = table.troubles;
    const bool is_positions = table.kind == Kind::fixed_width;
    return {
        {!is_utf8(table.encoding), can.character_set, "the character set"},
        {table.has_mark, can.byte_order_mark, "the byte order mark"},
        {has.replaced_bytes, can.replaced_bytes, "bytes that mean nothing in the character set"},
        {table.is_gzip, can.gzip, "the compression"},
        {table.kind == Kind::aligned, can.aligned, "runs of blanks between the cells"},
        {is_positions, can.fixed_width, "fixed widths"},
        {is_positions && has.beyond_ascii, can.fixed_width_beyond_ascii,
         "widths that are no numbers of bytes"},
        {is_positions && has.surrogates, false, "widths that are no numbers of characters"},
    };
}

std::vector<Demand> demands_of_cells(const Table& table, const Abilities& can) {
    const Troubles& has = table.troubles;
    const bool is_delimited = table.kind == Kind::delimited;
    const bool cuts_comments = !table.comment.empty() && can.comments == Comments::to_end_of_line;
    const bool has_groups = holds_groups(table);
    return {
        {is_delimited && table.delimiter.size() > 1, can.long_delimiters,
         "a delimiter of several bytes"},
        {is_delimited && table.delimiter == " ", can.single_blanks,
         "single blanks between the cells"},
        {has.odd_delimiters, false, "delimiters of which several count as one"},
        {table.quote != "\"" && table.kind != Kind::lines, can.other_quotes, "the quote character"},
        {!is_delimited && has.quoted_cells, can.quotes_in_positions, "quotes around such cells"},
        {has.stray_quotes && table.kind != Kind::lines, can.stray_quotes, "quotes inside cells"},
        {table.block_comments, false, "comments over several lines"},
        {has.comments, can.comments != Comments::none, "comments between the rows"},
        {has.comments && table.comment.size() > 1, can.comments == Comments::whole_lines,
         "a comment sign of several characters"},
        {has.comments && has.indented_comments, can.indented_comments, "comments behind blanks"},
        {has.comments && has.comment_signs, !cuts_comments, "comment signs inside cells"},
        {table.decimal != "." && holds_numbers(table), can.decimal_mark || has_groups,
         "the decimal mark"},
        {has_groups, can.thousands, "thousands separators"},
    };
}

std::vector<Demand> demands_of_rows(const Table& table, const Abilities& can) {
    const Troubles& has = table.troubles;
    return {
        {table.skipped_lines > 1, can.many_skipped_lines, "several lines above the data"},
        {has.skipped_quotes, can.skipped_quotes, "an open quote above the data"},
        {has.padded_cells, can.padded_cells, "blanks around the values"},
        {has.line_breaks, can.line_breaks, "line breaks in cells"},
        {has_extra_cells(table), can.extra_cells, "rows with too many cells"},
        {has.blank_lines, can.blank_lines, "blank lines between the rows"},
        {has.short_rows, can.short_rows, "rows that lack cells"},
        {has.mixed_endings, can.mixed_endings, "line endings of several kinds"},
        {has.lone_returns, can.lone_returns, "line endings of a carriage return alone"},
    };
}

} // namespace

std::vector<std::string> obstacles(const Table& table, const Abilities& abilities) {
    std::vector<std::string> found;
    for (const auto& demands :
         {demands_of_text(table, abilities), demands_of_cells(table, abilities),
          demands_of_rows(table, abilities)}) {
        for (const Demand& demand : demands) {
            if (demand.is_made && !demand.is_met) {
                found.emplace_back(demand.what);
            }
        }
    }
    return found;
}

std::string comment_to_tell(const Table& table, Comments comments) {
    const bool cuts = comments == Comments::to_end_of_line;
    const bool does_harm = cuts ? table.troubles.comment_signs || table.comment.size() > 1
                                : comments == Comments::none;
    return table.block_comments || does_harm ? std::string() : table.comment;
}

bool has_extra_cells(const Table& table) {
    return !table.columns.empty() && table.columns.back().is_extra;
}

Table converted(const Table& table, const Abilities& abilities) {
    Table plain;
    plain.file = table.file;
    plain.skipped_lines = 1;
    plain.missing = table.missing;
    plain.columns = table.columns;
    plain.convert = table.convert;
    plain.troubles.quoted_cells = true;
    plain.troubles.doubled_quotes = true;
    plain.troubles.beyond_ascii = true;
    plain.troubles.line_breaks = table.troubles.line_breaks;
    if (!abilities.extra_cells && has_extra_cells(table)) {
        plain.convert.insert(plain.convert.end(), {"--irregular", "skip"});
        std::erase_if(plain.columns, [](const Column& column) { return column.is_extra; });
    }
    // The command fills rows up to the columns of the table, but not to the extra ones.
    plain.troubles.short_rows = has_extra_cells(plain);
    for (Column& column : plain.columns) {
        column.is_grouped = false;
    }
    return plain;
}

} // namespace import_statements
