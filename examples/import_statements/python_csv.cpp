#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>

namespace import_statements {

namespace {

/// What makes a value of a text.
std::string reader_of(const Table& table, const Column& column) {
    std::string text = "text";
    switch (column.type) {
    case Type::integer:
    case Type::number:
        if (column.is_grouped) {
            text += ".replace(" + python_text(table.thousands) + ", \"\")";
        }
        if (table.decimal != ".") {
            text += ".replace(" + python_text(table.decimal) + ", \".\")";
        }
        return (column.type == Type::integer ? "int(" : "float(") + text + ")";
    case Type::date:
    case Type::date_time:
        return std::string("datetime.strptime(text, \"") + column.format->strptime + "\")" +
               (column.type == Type::date ? ".date()" : "");
    case Type::text:
        break;
    }
    return text;
}

std::string readers(const Table& table) {
    Arguments list("");
    for (const Column& column : table.columns) {
        list.add("lambda text: " + reader_of(table, column));
    }
    return "readers = [\n" + list.lines("    ", true) + "]\n";
}

std::string slices(const Table& table) {
    std::vector<std::string> items;
    for (const Column& column : table.columns) {
        const bool is_last = &column == &table.columns.back();
        items.push_back("line[" + std::to_string(column.begin) + ":" +
                        (is_last ? "" : std::to_string(column.end)) + "]");
    }
    return "[" + joined(items, ", ") + "]";
}

/// The lines that may hold data.
std::string lines(const Table& table) {
    std::vector<std::string> conditions;
    if (table.kind != Kind::delimited) {
        conditions.emplace_back("line.strip()");
    }
    if (const auto comment = comment_to_tell(table, Comments::whole_lines); !comment.empty()) {
        conditions.push_back("not line.lstrip(\" \\t\").startswith(" + python_text(comment) + ")");
    }
    return conditions.empty() ? "lines"
                              : "(line for line in lines if " + joined(conditions, " and ") + ")";
}

std::string records(const Table& table) {
    switch (table.kind) {
    case Kind::aligned:
        return "(line.replace(\"\\t\", \" \").strip(\" \\r\\n\").split() for line in " +
               lines(table) + ")";
    case Kind::fixed_width:
        return "(" + slices(table) + " for line in " + lines(table) + ")";
    case Kind::lines:
        return "([line] for line in " + lines(table) + ")";
    case Kind::delimited:
        break;
    }
    const std::string quote =
        table.quote.empty() ? "quoting=csv.QUOTE_NONE" : "quotechar=" + python_text(table.quote);
    return "csv.reader(" + lines(table) + ", delimiter=" + python_text(table.delimiter) + ", " +
           quote + ")";
}

std::string opened(const Table& table, bool is_piped) {
    if (is_piped) {
        return "pipe = subprocess.Popen(" + python_list(table.convert) +
               ", stdout=subprocess.PIPE, encoding=\"utf-8\")\nwith pipe.stdout as lines:\n";
    }
    std::string encoding = encoding_of(table.encoding).python;
    if (table.has_mark) {
        encoding = encoding == "utf-8" ? "utf-8-sig" : encoding.substr(0, 6);
    }
    return std::string("with ") + (table.is_gzip ? "gzip.open(" : "open(") +
           python_text(table.file) + ", \"rt\", encoding=" + python_text(encoding) +
           (table.troubles.replaced_bytes ? ", errors=\"replace\"" : "") +
           ", newline=\"\") as lines:\n";
}

std::string imports(const Table& table, bool is_piped) {
    std::string text = table.kind == Kind::delimited ? "import csv\n" : "";
    text += table.is_gzip && !is_piped ? "import gzip\n" : "";
    text += is_piped ? "import subprocess\n" : "";
    const bool has_dates = std::any_of(table.columns.begin(), table.columns.end(),
                                       [](const Column& c) { return c.format != nullptr; });
    text += has_dates ? "from datetime import datetime\n" : "";
    return text.append(text.empty() ? "" : "\n");
}

} // namespace

Abilities python_csv_abilities(const Table& table) {
    Abilities can;
    can.character_set = encoding_of(table.encoding).python != nullptr;
    can.byte_order_mark = can.replaced_bytes = can.gzip = true;
    can.aligned = can.fixed_width = can.fixed_width_beyond_ascii = true;
    can.other_quotes = can.stray_quotes = true;
    // A line inside quotes may begin like a comment.
    can.comments = table.troubles.line_breaks ? Comments::none : Comments::whole_lines;
    can.indented_comments = true;
    can.decimal_mark = table.decimal.size() == 1;
    can.thousands = can.decimal_mark && table.thousands.size() == 1;
    can.skipped_quotes = can.blank_lines = can.short_rows = can.extra_cells = can.lone_returns =
        true;
    return can;
}

std::string write_python_csv(const Table& table, bool is_piped) {
    const bool is_delimited = table.kind == Kind::delimited;
    const std::string skip = table.skipped_lines == 0
                                 ? ""
                                 : "    for _ in range(" + std::to_string(table.skipped_lines) +
                                       "):\n        next(lines)\n";
    const std::string loop =
        "    for record in " + records(table) + ":\n" +
        (is_delimited ? "        if len(record) > 1 or \"\".join(record).strip():\n    " : "") +
        "        rows.append([\n";
    const std::string indent = is_delimited ? "                " : "            ";
    const std::string body =
        indent + "None if (text := cell.strip(\" \\t\\r\\n\")) in missing else read(text)\n" +
        indent + "for cell, read in zip(record, readers)\n" + indent.substr(4) + "])\n";
    return imports(table, is_piped) + "names = " + python_list(column_names(table)) +
           "\nmissing = " + python_list(missing_texts(table)) + "\n" + readers(table) +
           "rows = []\n" + opened(table, is_piped) + skip + loop + body;
}

} // namespace import_statements
