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
        return "STRING"; // dates are made of it, as there may be several formats
    }
}

std::string schema_name(const std::string& name) {
    std::string quoted = "`";
    for (const char unit : name) {
        quoted += unit == '`' ? "``" : std::string(1, unit);
    }
    return quoted + "`";
}

std::string dates(const Table& table, const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Column& column = table.columns[i];
        if (column.format != nullptr) {
            const std::string name = python_text(names[i]);
            text += "data = data.withColumn(" + name + ", " +
                    (column.type == Type::date ? "to_date" : "to_timestamp") + "(data[" +
                    python_text(schema_name(names[i])) + "], " +
                    python_text(column.format->pattern) + "))\n";
        }
    }
    return text;
}

} // namespace

Abilities spark_abilities(const Table& table) {
    Abilities can;
    can.character_set = true;
    can.byte_order_mark = is_utf8(table.encoding);
    can.gzip = table.file.ends_with(".gz");
    can.long_delimiters = true;
    can.other_quotes = true;
    can.comments = table.comment.size() == 1 ? Comments::whole_lines : Comments::none;
    can.many_skipped_lines = false;
    can.padded_cells = can.blank_lines = can.short_rows = can.extra_cells = true;
    return can;
}

std::string write_spark(const Table& table, bool is_piped) {
    const std::vector<std::string> names = column_names(table);
    std::string schema;
    for (std::size_t i = 0; i < names.size(); ++i) {
        schema.append(i == 0 ? "" : ", ")
            .append(schema_name(names[i]))
            .append(" ")
            .append(column_type(table.columns[i]));
    }
    const std::string file = is_piped ? table.file + ".csv" : table.file;
    const bool is_lines = table.kind == Kind::lines;
    const std::string quote = is_lines ? "" : table.quote;
    Arguments arguments("=");
    arguments.add(python_text(file));
    arguments.add("schema", python_text(schema));
    arguments.add("sep", python_text(is_lines ? "\x1f" : table.delimiter));
    arguments.add("quote", python_text(quote));
    arguments.add("escape", python_text(quote));
    arguments.add("header", table.skipped_lines == 1 ? "True" : "False");
    arguments.add("enforceSchema", "True");
    if (const auto comment = comment_to_tell(table, Comments::whole_lines); !comment.empty()) {
        arguments.add("comment", python_text(comment));
    }
    arguments.add("encoding", python_text(encoding_of(table.encoding).r));
    arguments.add("multiLine", table.troubles.line_breaks ? "True" : "False");
    if (table.troubles.padded_cells) {
        arguments.add("ignoreLeadingWhiteSpace", "True");
        arguments.add("ignoreTrailingWhiteSpace", "True");
    }
    if (!table.missing.empty()) {
        arguments.add("nullValue", python_text(table.missing.front()));
    }
    std::string start;
    if (is_piped) {
        std::vector<std::string> command = table.convert;
        command.insert(command.end(), {"-o", file});
        start = "# First run: " + one_line(shell_command(command)) + "\n";
    }
    const std::string changes = dates(table, names);
    return start +
           (changes.empty() ? "" : "from pyspark.sql.functions import to_date, to_timestamp\n\n") +
           "data = spark.read.csv(\n" + arguments.lines("    ", true) + ")\n" + changes;
}

} // namespace import_statements
