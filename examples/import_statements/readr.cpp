#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

namespace import_statements {

namespace {

/// R has no whole numbers of more than 32 bits. What readr makes of numbers with separators is not
/// always exact, so they are read as texts first.
std::string column_type(const Column& column) {
    switch (column.type) {
    case Type::integer:
    case Type::number:
        return column.is_grouped ? "col_character()" : "col_double()";
    case Type::date:
        return std::string("col_date(\"") + column.format->strptime + "\")";
    case Type::date_time:
        return std::string("col_datetime(\"") + column.format->strptime + "\")";
    case Type::text:
        break;
    }
    return "col_character()";
}

std::string positions(const Table& table, const std::string& names) {
    std::vector<std::string> begins;
    std::vector<std::string> ends;
    for (const Column& column : table.columns) {
        const bool is_last = &column == &table.columns.back();
        begins.push_back(std::to_string(column.begin + 1));
        ends.push_back(is_last ? "NA" : std::to_string(column.end));
    }
    return "fwf_positions(c(" + joined(begins, ", ") + "), c(" + joined(ends, ", ") + "), " +
           names + ")";
}

std::string locale(const Table& table) {
    std::vector<std::string> parts;
    if (table.decimal != ".") {
        parts.push_back("decimal_mark = " + r_text(table.decimal));
    }
    if (!is_utf8(table.encoding)) {
        parts.push_back("encoding = " + r_text(encoding_of(table.encoding).r));
    }
    return "locale(" + joined(parts, ", ") + ")";
}

std::string function(Kind kind) {
    switch (kind) {
    case Kind::aligned:
        return "read_table";
    case Kind::fixed_width:
        return "read_fwf";
    default:
        return "read_delim";
    }
}

/// How the cells are parted, and the names.
void add_splitting(Arguments& arguments, const Table& table) {
    constexpr const char* no_delimiter = "\x1f";
    const std::string names = r_vector(column_names(table));
    if (table.kind == Kind::fixed_width) {
        arguments.add(positions(table, names));
        return;
    }
    if (table.kind != Kind::aligned) {
        arguments.add("delim", r_text(table.kind == Kind::lines ? no_delimiter : table.delimiter));
        arguments.add("quote", r_text(table.kind == Kind::lines ? "" : table.quote));
        arguments.add("escape_backslash", "FALSE");
        arguments.add("escape_double", "TRUE");
    }
    arguments.add("col_names", names);
}

std::string numbers(const Table& table) {
    const std::vector<std::string> names = column_names(table);
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (table.columns[i].is_grouped) {
            const std::string values = "data[[" + r_text(names[i]) + "]]";
            text += values + " <- " + r_numbers(table, values) + "\n";
        }
    }
    return text;
}

} // namespace

Abilities readr_abilities(const Table& table) {
    Abilities can;
    // What is wider than a byte throughout is not found out before it is split.
    can.character_set =
        !table.encoding.starts_with("UTF-16") && !table.encoding.starts_with("UTF-32");
    can.byte_order_mark = can.character_set;
    can.gzip = true;
    can.aligned = can.fixed_width = true;
    can.other_quotes = true;
    can.comments = Comments::to_end_of_line;
    can.decimal_mark = table.decimal.size() == 1;
    can.thousands = true;
    can.padded_cells = can.blank_lines = can.short_rows = true;
    return can;
}

std::string write_readr(const Table& table, bool is_piped) {
    std::vector<std::string> types;
    for (const Column& column : table.columns) {
        types.push_back(column_type(column));
    }
    Arguments arguments(" = ");
    arguments.add(is_piped ? "pipe(" + r_text(shell_command(table.convert)) + ")"
                           : r_text(table.file));
    add_splitting(arguments, table);
    arguments.add("col_types", "list(" + joined(types, ", ") + ")");
    arguments.add("locale", locale(table));
    arguments.add("na", r_vector(missing_texts(table)));
    if (const auto comment = comment_to_tell(table, Comments::to_end_of_line); !comment.empty()) {
        arguments.add("comment", r_text(comment));
    }
    if (table.skipped_lines > 0) {
        arguments.add("skip", std::to_string(table.skipped_lines));
    }
    if (table.kind != Kind::aligned) {
        arguments.add("trim_ws", table.troubles.padded_cells || table.kind == Kind::fixed_width
                                     ? "TRUE"
                                     : "FALSE");
    }
    return "library(readr)\n\ndata <- " + function(table.kind) + "(\n" +
           arguments.lines("  ", false) + ")\n" + numbers(table);
}

} // namespace import_statements
