#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>

namespace import_statements {

namespace {

std::string_view column_type(const Column& column) {
    switch (column.type) {
    case Type::integer:
        return "pl.Int64";
    case Type::number:
        return "pl.Float64";
    default:
        return "pl.String"; // dates are made of it, as there may be several formats
    }
}

std::string schema(const Table& table, const std::vector<std::string>& names) {
    Arguments entries(": ");
    for (std::size_t i = 0; i < names.size(); ++i) {
        entries.add(python_text(names[i]), column_type(table.columns[i]));
    }
    return "{\n" + entries.lines("        ", true) + "    }";
}

std::string dates(const Table& table, const std::vector<std::string>& names) {
    Arguments changes("");
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Column& column = table.columns[i];
        if (column.format != nullptr) {
            changes.add("pl.col(" + python_text(names[i]) + ").str." +
                        (column.type == Type::date ? "to_date" : "to_datetime") + "(\"" +
                        column.format->strptime + "\")");
        }
    }
    const std::string lines = changes.lines("    ", true);
    return lines.empty() ? lines : "data = data.with_columns(\n" + lines + ")\n";
}

std::string encoding(const Table& table) {
    if (is_utf8(table.encoding)) {
        return table.troubles.replaced_bytes ? "utf8-lossy" : "utf8";
    }
    return encoding_of(table.encoding).python;
}

} // namespace

Abilities polars_abilities(const Table& table) {
    Abilities can;
    can.character_set = true;
    can.byte_order_mark = can.replaced_bytes = is_utf8(table.encoding);
    can.gzip = can.replaced_bytes;
    can.other_quotes = true;
    can.comments = Comments::whole_lines;
    can.decimal_mark = table.decimal == ",";
    can.short_rows = can.extra_cells = true;
    return can;
}

std::string write_polars(const Table& table, bool is_piped) {
    const std::vector<std::string> names = column_names(table);
    const bool is_lines = table.kind == Kind::lines;
    Arguments arguments("=");
    arguments.add(is_piped ? "pipe.stdout" : python_text(table.file));
    arguments.add("separator", is_lines ? "\"\\x1f\"" : python_text(table.delimiter));
    arguments.add("quote_char",
                  is_lines || table.quote.empty() ? "None" : python_text(table.quote));
    arguments.add("has_header", "False");
    // Lines are skipped whatever stands in them, and so are those inside the names that are
    // written.
    std::size_t skipped = table.skipped_lines;
    for (const Column& column : table.columns) {
        const auto breaks = std::count(column.name.begin(), column.name.end(), '\n');
        skipped += is_piped ? static_cast<std::size_t>(breaks) : 0;
    }
    if (skipped > 0) {
        arguments.add("skip_lines", std::to_string(skipped));
    }
    arguments.add("schema", schema(table, names));
    if (const auto comment = comment_to_tell(table, Comments::whole_lines); !comment.empty()) {
        arguments.add("comment_prefix", python_text(comment));
    }
    if (table.decimal == ",") {
        arguments.add("decimal_comma", "True");
    }
    arguments.add("null_values", python_list(missing_texts(table)));
    arguments.add("encoding", python_text(encoding(table)));
    const std::string call = "data = pl.read_csv(\n";
    if (!is_piped) {
        return "import polars as pl\n\n" + call + arguments.lines("    ", true) + ")\n" +
               dates(table, names);
    }
    return "import subprocess\n\nimport polars as pl\n\npipe = subprocess.run(" +
           python_list(table.convert) + ", stdout=subprocess.PIPE)\n" + call +
           arguments.lines("    ", true) + ")\n" + dates(table, names);
}

} // namespace import_statements
