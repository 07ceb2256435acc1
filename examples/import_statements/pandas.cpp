#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>

namespace import_statements {

namespace {

/// A number with separators goes through what alone knows them.
std::string dtype(const Column& column) {
    if (column.type == Type::integer && !column.is_grouped) {
        return column.has_missing ? "\"Int64\"" : "\"int64\"";
    }
    const bool is_number = column.type == Type::integer || column.type == Type::number;
    return is_number ? "\"float64\"" : "\"str\"";
}

std::string positions(const Table& table) {
    std::vector<std::string> pairs;
    for (const Column& column : table.columns) {
        const bool is_last = &column == &table.columns.back();
        pairs.push_back("(" + std::to_string(column.begin) + ", " +
                        (is_last ? "None" : std::to_string(column.end)) + ")");
    }
    return "[" + joined(pairs, ", ") + "]";
}

void add_splitting(Arguments& arguments, const Table& table) {
    switch (table.kind) {
    case Kind::fixed_width:
        arguments.add("colspecs", positions(table));
        return;
    case Kind::lines:
        arguments.add("colspecs", "[(0, None)]");
        return;
    case Kind::aligned:
        arguments.add("sep", "r\"\\s+\"");
        break;
    case Kind::delimited:
        arguments.add("sep", python_text(table.delimiter));
        break;
    }
    if (table.quote.empty()) {
        arguments.add("quoting", "3");
    } else if (table.quote != "\"") {
        arguments.add("quotechar", python_text(table.quote));
    }
    if (table.troubles.padded_cells) {
        arguments.add("skipinitialspace", "True");
    }
}

void add_encoding(Arguments& arguments, const Table& table) {
    const Encoding encoding = encoding_of(table.encoding);
    const std::string_view name = encoding.python;
    if (table.has_mark) {
        arguments.add("encoding", python_text(name == "utf-8" ? "utf-8-sig" : name.substr(0, 6)));
    } else {
        arguments.add("encoding", python_text(name));
    }
    if (table.troubles.replaced_bytes) {
        arguments.add("encoding_errors", "\"replace\"");
    }
    if (table.is_gzip) {
        arguments.add("compression", "\"gzip\"");
    }
}

void add_values(Arguments& arguments, const Table& table) {
    if (table.decimal != ".") {
        arguments.add("decimal", python_text(table.decimal));
    }
    if (!table.thousands.empty() && std::any_of(table.columns.begin(), table.columns.end(),
                                                [](const Column& c) { return c.is_grouped; })) {
        arguments.add("thousands", python_text(table.thousands));
    }
    arguments.add("na_values", python_list(missing_texts(table)));
    arguments.add("keep_default_na", "False");
}

std::string types(const Table& table, const std::vector<std::string>& names) {
    Arguments entries(": ");
    for (std::size_t i = 0; i < names.size(); ++i) {
        entries.add(python_text(names[i]), dtype(table.columns[i]));
    }
    return "{\n" + entries.lines("        ", true) + "    }";
}

std::string dates(const Table& table, const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (table.columns[i].format != nullptr) {
            const std::string place = "data[" + python_text(names[i]) + "]";
            text.append(place + " = pd.to_datetime(" + place + ", format=\"" +
                        table.columns[i].format->strptime + "\")\n");
        }
    }
    return text;
}

} // namespace

Abilities pandas_abilities(const Table& table) {
    Abilities can;
    can.character_set = encoding_of(table.encoding).python != nullptr;
    can.byte_order_mark = can.replaced_bytes = can.gzip = true;
    can.aligned = can.fixed_width = can.fixed_width_beyond_ascii = true;
    can.other_quotes = can.stray_quotes = true;
    can.comments = Comments::to_end_of_line;
    can.decimal_mark = table.decimal.size() == 1;
    can.thousands = can.decimal_mark && table.thousands.size() == 1;
    can.blank_lines = can.short_rows = can.extra_cells = can.lone_returns = true;
    return can;
}

std::string write_pandas(const Table& table, bool is_piped) {
    const bool has_positions = table.kind == Kind::fixed_width || table.kind == Kind::lines;
    const std::vector<std::string> names = column_names(table);
    Arguments arguments("=");
    arguments.add(is_piped ? "pipe.stdout" : python_text(table.file));
    add_splitting(arguments, table);
    arguments.add("header", is_piped ? "0" : "None");
    arguments.add("names", python_list(names));
    if (!is_piped && table.skipped_lines > 0) {
        arguments.add("skiprows", std::to_string(table.skipped_lines));
    }
    if (const auto comment = comment_to_tell(table, Comments::to_end_of_line); !comment.empty()) {
        arguments.add("comment", python_text(comment));
    }
    arguments.add("dtype", types(table, names));
    add_values(arguments, table);
    if (!has_positions) {
        arguments.add("float_precision", "\"round_trip\"");
    }
    add_encoding(arguments, table);
    const std::string call = std::string("data = pd.read_") + (has_positions ? "fwf" : "csv");
    if (!is_piped) {
        return "import pandas as pd\n\n" + call + "(\n" + arguments.lines("    ", true) + ")\n" +
               dates(table, names);
    }
    return "import subprocess\n\nimport pandas as pd\n\nwith subprocess.Popen(" +
           python_list(table.convert) + ", stdout=subprocess.PIPE) as pipe:\n    " + call + "(\n" +
           arguments.lines("        ", true) + "    )\n" + dates(table, names);
}

} // namespace import_statements
