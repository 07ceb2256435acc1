#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>

namespace import_statements {

namespace {

std::string_view column_type(const Column& column) {
    switch (column.type) {
    case Type::integer:
        return "BIGINT";
    case Type::number:
        return "DOUBLE";
    default:
        return "VARCHAR"; // dates are made of it, as there may be several formats
    }
}

/// DuckDB's own name for the character set; null for those that it does not know by itself.
const char* encoding_name(const Table& table) {
    if (is_utf8(table.encoding)) {
        return "utf-8";
    }
    if (table.encoding == "ISO-8859-1") {
        return "latin-1";
    }
    return table.encoding == "UTF-16LE" ? "utf-16" : nullptr;
}

std::string columns(const Table& table, const std::vector<std::string>& names) {
    Arguments entries(": ");
    for (std::size_t i = 0; i < names.size(); ++i) {
        entries.add(sql_text(names[i]), sql_text(column_type(table.columns[i])));
    }
    return "{\n" + entries.lines("    ", false) + "  }";
}

/// The columns as they are wanted: all, with dates made of their texts.
std::string selection(const Table& table, const std::vector<std::string>& names) {
    std::vector<std::string> dates;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Column& column = table.columns[i];
        if (column.format != nullptr) {
            const std::string name = sql_name(names[i]);
            dates.push_back("strptime(" + name + ", " + sql_text(column.format->strptime) + ")" +
                            (column.type == Type::date ? "::DATE" : "") + " AS " + name);
        }
    }
    return dates.empty() ? "*" : "* REPLACE (\n  " + joined(dates, ",\n  ") + "\n)";
}

} // namespace

Abilities duckdb_abilities(const Table& table) {
    Abilities can;
    can.character_set = encoding_name(table) != nullptr;
    can.byte_order_mark = can.character_set;
    can.gzip = true;
    can.other_quotes = true;
    can.decimal_mark = table.decimal == ",";
    can.thousands = (table.decimal == "," || table.decimal == ".") && table.thousands.size() == 1;
    can.comments = Comments::to_end_of_line;
    can.short_rows = can.extra_cells = true;
    can.mixed_endings = false; // the first one decides
    return can;
}

std::string write_duckdb(const Table& table, bool is_piped) {
    const std::vector<std::string> names = column_names(table);
    Arguments arguments(" = ");
    arguments.add(is_piped ? "'/dev/stdin'" : sql_text(table.file));
    arguments.add("auto_detect", "false");
    arguments.add("delim", table.kind == Kind::lines ? "chr(31)" : sql_text(table.delimiter));
    const std::string quote = table.kind == Kind::lines ? "" : table.quote;
    arguments.add("quote", sql_text(quote));
    arguments.add("escape", sql_text(quote));
    arguments.add("header", "false");
    const std::string comment = comment_to_tell(table, Comments::to_end_of_line);
    // Comments do not count where they are known.
    const std::size_t skipped =
        table.skipped_lines - (comment.empty() ? 0 : table.skipped_comments);
    if (skipped > 0) {
        arguments.add("skip", std::to_string(skipped));
    }
    arguments.add("columns", columns(table, names));
    if (!comment.empty()) {
        arguments.add("comment", sql_text(comment));
    }
    if (table.decimal != ".") {
        arguments.add("decimal_separator", "','");
    }
    if (!table.thousands.empty()) {
        arguments.add("thousands", sql_text(table.thousands));
    }
    arguments.add("nullstr", "[" + joined(each(missing_texts(table), sql_text), ", ") + "]");
    if (table.troubles.short_rows) {
        arguments.add("null_padding", "true");
    }
    if (table.is_gzip) {
        arguments.add("compression", "'gzip'");
    }
    if (!is_utf8(table.encoding)) {
        arguments.add("encoding", sql_text(encoding_name(table)));
    }
    const std::string start = is_piped ? "-- Run it so: " + one_line(shell_command(table.convert)) +
                                             " | duckdb DATABASE -f STATEMENT\n"
                                       : std::string();
    return start + "CREATE TABLE " + sql_name(table_name(table)) + " AS\nSELECT " +
           selection(table, names) + "\nFROM read_csv(\n" + arguments.lines("  ", false) + ");\n";
}

} // namespace import_statements
