#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>

namespace import_statements {

namespace {

constexpr std::size_t longest_name = 63;

std::string_view type_name(const Column& column) {
    switch (column.type) {
    case Type::integer:
        return "bigint";
    case Type::number:
        return "double precision";
    case Type::date:
        return "date";
    case Type::date_time:
        return column.format->is_utc ? "timestamptz" : "timestamp";
    case Type::text:
        break;
    }
    return "text";
}

bool is_number(const Column& column) {
    return column.type == Type::integer || column.type == Type::number;
}

bool is_iso(const Column& column) {
    return column.format != nullptr && std::string_view(column.format->strptime).starts_with("%Y");
}

/// Whether the values go in as they are written; the others are texts at first.
bool goes_straight(const Table& table, const Column& column) {
    const bool has_marks = column.is_grouped || table.decimal != ".";
    const bool is_plain =
        is_number(column) ? !has_marks : column.format == nullptr || is_iso(column);
    return is_plain && (table.missing.empty() || !column.has_missing);
}

/// The value of a column of texts.
std::string value_of(const Table& table, const Column& column, const std::string& name) {
    std::string value = name;
    for (const std::string& missing : table.missing) {
        value = "nullif(" + value + ", " + sql_text(missing) + ")";
    }
    if (column.format != nullptr) {
        const std::string function = column.type == Type::date ? "to_date(" : "to_timestamp(";
        return function + value + ", " + sql_text(column.format->to_date) + ")";
    }
    if (is_number(column)) {
        value = column.is_grouped ? "replace(" + value + ", " + sql_text(table.thousands) + ", '')"
                                  : value;
        value = table.decimal == "."
                    ? value
                    : "replace(" + value + ", " + sql_text(table.decimal) + ", '.')";
    }
    return value;
}

std::string conversions(const Table& table, const std::vector<std::string>& names) {
    std::vector<std::string> changes;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Column& column = table.columns[i];
        if (!goes_straight(table, column)) {
            const std::string name = postgres_name(names[i]);
            const std::string type(type_name(column));
            changes.push_back("  ALTER COLUMN " + name + " TYPE " + type + " USING (" +
                              value_of(table, column, name) + ")::" + type);
        }
    }
    return changes.empty() ? std::string()
                           : "ALTER TABLE " + postgres_name(table_name(table)) + "\n" +
                                 joined(changes, ",\n") + ";\n";
}

/// Where the rows come from, and how many lines are still to be skipped.
std::string source(const Table& table, bool is_piped, bool& has_header) {
    has_header = table.skipped_lines == 1;
    if (is_piped) {
        // A status of 1 tells of rows that do not fit and are loaded all the same.
        return "PROGRAM " + sql_text(shell_command(table.convert) + " || test $? -eq 1");
    }
    if (table.skipped_lines <= 1) {
        return sql_text(table.file);
    }
    const std::string first = "+" + std::to_string(table.skipped_lines + 1);
    return "PROGRAM " + sql_text(shell_command({"tail", "-n", first, "--", table.file}));
}

/// The texts of columns that are none, whose quoted empty cells are no values either.
std::string forced_nulls(const Table& table, const std::vector<std::string>& names) {
    std::vector<std::string> columns;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (table.columns[i].type != Type::text) {
            columns.push_back(postgres_name(names[i]));
        }
    }
    return columns.empty() || !table.troubles.quoted_cells
               ? std::string()
               : ", FORCE_NULL (" + joined(columns, ", ") + ")";
}

} // namespace

Abilities postgres_abilities(const Table& table) {
    Abilities can;
    can.character_set = encoding_of(table.encoding).postgres != nullptr;
    can.decimal_mark = table.decimal.size() == 1;
    can.thousands = can.decimal_mark && table.thousands.size() == 1;
    can.other_quotes = !table.quote.empty() && table.quote.size() == 1;
    can.byte_order_mark = is_utf8(table.encoding) && table.skipped_lines > 0;
    can.mixed_endings = false; // the first one decides
    return can;
}

std::string write_postgres(const Table& table, bool is_piped) {
    const std::vector<std::string> names = column_names(table, longest_name);
    Arguments columns(" ");
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Column& column = table.columns[i];
        columns.add(postgres_name(names[i]),
                    goes_straight(table, column) ? type_name(column) : "text");
    }
    bool has_header = false;
    const std::string name = postgres_name(table_name(table));
    std::string copy =
        "\\copy " + name + " FROM " + source(table, is_piped, has_header) + " WITH (FORMAT csv";
    const bool is_lines = table.kind == Kind::lines;
    copy += ", DELIMITER " + (is_lines ? "E'\\x1f'" : sql_text(table.delimiter));
    copy += ", QUOTE " + (is_lines ? "E'\\x01'" : sql_text(table.quote));
    copy += has_header ? ", HEADER" : "";
    copy += forced_nulls(table, names);
    copy += ", ENCODING " + sql_text(encoding_of(table.encoding).postgres) + ")\n";
    return "CREATE TABLE " + name + " (\n" + columns.lines("  ", false) + ");\n" + copy +
           conversions(table, names);
}

} // namespace import_statements
