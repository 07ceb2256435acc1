#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>

namespace import_statements {

namespace {

std::string_view column_type(const Column& column) {
    return column.type == Type::integer ? "INTEGER" : column.type == Type::number ? "REAL" : "TEXT";
}

/// A cell without a value is an empty text to the shell.
std::string nulls(const Table& table, const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (table.columns[i].has_missing) {
            const std::string name = sql_name(names[i]);
            text.append("UPDATE " + sql_name(table_name(table)) + " SET " + name +
                        " = NULL WHERE " + name + " IN (" +
                        joined(each(missing_texts(table), sql_text), ", ") + ");\n");
        }
    }
    return text;
}

} // namespace

Abilities sqlite_abilities(const Table& table) {
    Abilities can;
    can.byte_order_mark = is_utf8(table.encoding) && table.skipped_lines > 0;
    // Only with lines that have no quotes, as rows are skipped.
    can.stray_quotes = true;
    can.short_rows = can.extra_cells = true; // it fills them up, and says so
    return can;
}

std::string write_sqlite(const Table& table, bool is_piped) {
    const std::vector<std::string> names = column_names(table);
    const std::string name = table_name(table);
    Arguments columns(" ");
    for (std::size_t i = 0; i < names.size(); ++i) {
        columns.add(sql_name(names[i]), column_type(table.columns[i]));
    }
    const std::string source = is_piped ? "|" + shell_command(table.convert) : table.file;
    const bool is_lines = table.kind == Kind::lines;
    const std::string mode =
        is_lines ? ".mode ascii\n.separator \"\\037\" \"\\n\"\n"
                 : ".mode csv\n.separator " + dot_command_text(table.delimiter) + " \"\\n\"\n";
    const std::string skip =
        table.skipped_lines > 0 ? "--skip " + std::to_string(table.skipped_lines) + " " : "";
    return "CREATE TABLE " + sql_name(name) + " (\n" + columns.lines("  ", false) + ");\n" + mode +
           ".import " + skip + dot_command_text(source) + " " + dot_command_text(name) + "\n" +
           nulls(table, names);
}

} // namespace import_statements
