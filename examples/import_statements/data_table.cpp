#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

namespace import_statements {

namespace {

/// Numbers are made of texts where they have separators, or where cells without a value may be in
/// quotes, which fread takes for values.
bool is_made_of_text(const Table& table, const Column& column) {
    const bool is_number = column.type == Type::integer || column.type == Type::number;
    return column.is_grouped || (is_number && column.has_missing && table.troubles.quoted_cells);
}

/// Numbers are read as doubles: R has no whole numbers of more than 32 bits.
std::string classes(const Table& table) {
    std::vector<std::string> items;
    for (const Column& column : table.columns) {
        const bool is_number = column.type == Type::integer || column.type == Type::number;
        items.emplace_back(is_number && !is_made_of_text(table, column) ? "numeric" : "character");
    }
    return r_vector(items);
}

void add_splitting(Arguments& arguments, const Table& table) {
    switch (table.kind) {
    case Kind::lines:
        arguments.add("sep", "\"\\n\"");
        break;
    case Kind::aligned:
        arguments.add("sep", "\" \"");
        break;
    default:
        arguments.add("sep", r_text(table.delimiter));
        break;
    }
    arguments.add("quote", r_text(table.kind == Kind::lines ? "" : table.quote));
}

/// What fread leaves to be done: doubled quotes, and dates in other forms than its own.
std::string afterwards(const Table& table, const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Column& column = table.columns[i];
        const std::string name = r_text(names[i]);
        const std::string values = "data[[" + name + "]]";
        std::string change;
        if (column.type == Type::date) {
            change = "as.IDate(" + values + ", \"" + column.format->strptime + "\")";
        } else if (column.type == Type::date_time) {
            change = "as.POSIXct(" + values + ", format = \"" + column.format->strptime +
                     "\", tz = \"UTC\")";
        } else if (is_made_of_text(table, column)) {
            change = r_numbers(table, values);
        } else if (column.type == Type::text && table.troubles.doubled_quotes) {
            change = "gsub(" + r_text(table.quote + table.quote) + ", " + r_text(table.quote) +
                     ", " + values + ", fixed = TRUE)";
        }
        if (!change.empty()) {
            text.append("set(data, j = " + name + ", value = " + change + ")\n");
        }
    }
    return text;
}

} // namespace

Abilities data_table_abilities(const Table& table) {
    Abilities can;
    can.byte_order_mark = is_utf8(table.encoding);
    can.aligned = true;
    can.single_blanks = false;
    can.other_quotes = true;
    can.decimal_mark = table.decimal == ",";
    can.thousands = true;
    can.padded_cells = can.blank_lines = can.short_rows = can.extra_cells = true;
    can.skipped_quotes = true;
    return can;
}

std::string write_data_table(const Table& table, bool is_piped) {
    const std::vector<std::string> names = column_names(table);
    Arguments arguments(" = ");
    if (is_piped) {
        arguments.add("cmd", r_text(shell_command(table.convert)));
    } else {
        arguments.add("file", r_text(table.file));
    }
    add_splitting(arguments, table);
    arguments.add("header", "FALSE");
    if (table.skipped_lines > 0) {
        arguments.add("skip", std::to_string(table.skipped_lines) + "L");
    }
    arguments.add("col.names", r_vector(names));
    arguments.add("colClasses", classes(table));
    if (table.decimal == ",") {
        arguments.add("dec", r_text(table.decimal));
    }
    arguments.add("na.strings", r_vector(missing_texts(table)));
    arguments.add("encoding", "\"UTF-8\"");
    arguments.add("strip.white",
                  table.troubles.padded_cells || table.kind == Kind::aligned ? "TRUE" : "FALSE");
    if (table.troubles.blank_lines) {
        arguments.add("blank.lines.skip", "TRUE");
    }
    if (table.troubles.short_rows) {
        arguments.add("fill", "TRUE");
    }
    return "library(data.table)\n\ndata <- fread(\n" + arguments.lines("  ", false) + ")\n" +
           afterwards(table, names);
}

} // namespace import_statements
