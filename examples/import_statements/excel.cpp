#include "encodings.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>

namespace import_statements {

namespace {

std::string column_type(const Column& column) {
    switch (column.type) {
    case Type::integer:
        return "Int64.Type";
    case Type::number:
        return "type number";
    case Type::date:
        return "type date";
    case Type::date_time:
        return column.format->is_utc ? "type datetimezone" : "type datetime";
    case Type::text:
        break;
    }
    return "type text";
}

/// A culture that writes numbers with these marks; null if none is known.
const char* culture(const Table& table) {
    if (table.decimal == ",") {
        return table.thousands.empty() || table.thousands == "." ? "de-DE" : nullptr;
    }
    return table.decimal == "." && (table.thousands.empty() || table.thousands == ",") ? "en-US"
                                                                                       : nullptr;
}

/// The place of each fixed-width column, or the delimiter.
std::string delimiter(const Table& table) {
    if (table.kind == Kind::fixed_width) {
        std::vector<std::string> places;
        for (const Column& column : table.columns) {
            places.push_back(std::to_string(column.begin));
        }
        return "{" + joined(places, ", ") + "}";
    }
    return m_text(table.kind == Kind::lines ? "\x1f" : table.delimiter);
}

std::string pairs(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    std::vector<std::string> items;
    for (std::size_t i = 0; i < left.size(); ++i) {
        items.push_back("{" + left[i] + ", " + right[i] + "}");
    }
    return "{" + joined(items, ", ") + "}";
}

/// A step for each culture in which values of columns are written.
void add_types(Arguments& steps, const Table& table, const std::vector<std::string>& names,
               std::string& last) {
    const char* const marks = culture(table);
    std::vector<std::string> cultures{marks};
    for (const Column& column : table.columns) {
        if (column.format != nullptr &&
            std::find(cultures.begin(), cultures.end(), column.format->culture) == cultures.end()) {
            cultures.emplace_back(column.format->culture);
        }
    }
    for (std::size_t k = 0; k < cultures.size(); ++k) {
        std::vector<std::string> chosen;
        std::vector<std::string> types;
        for (std::size_t i = 0; i < names.size(); ++i) {
            const Column& column = table.columns[i];
            if (cultures[k] == (column.format == nullptr ? marks : column.format->culture)) {
                chosen.push_back(names[i]);
                types.push_back(column_type(column));
            }
        }
        if (!chosen.empty()) {
            const std::string step = "Typed" + std::to_string(k + 1);
            steps.add(step, "Table.TransformColumnTypes(" + last + ", " + pairs(chosen, types) +
                                ", " + m_text(cultures[k]) + ")");
            last = step;
        }
    }
}

} // namespace

Abilities excel_abilities(const Table& table) {
    Abilities can;
    can.character_set = encoding_of(table.encoding).code_page != nullptr;
    can.byte_order_mark = true;
    can.fixed_width = can.fixed_width_beyond_ascii = true;
    can.decimal_mark = can.thousands = culture(table) != nullptr;
    can.short_rows = can.extra_cells = true;
    return can;
}

std::string write_excel(const Table& table, bool is_piped) {
    std::vector<std::string> names = column_names(table);
    std::transform(names.begin(), names.end(), names.begin(), m_text);
    std::vector<std::string> numbered;
    for (std::size_t i = 1; i <= names.size(); ++i) {
        numbered.push_back(m_text("Column" + std::to_string(i)));
    }
    const std::string file = is_piped ? table.file + ".csv" : table.file;
    std::string start;
    if (is_piped) {
        std::vector<std::string> command = table.convert;
        command.insert(command.end(), {"-o", file});
        start = "// First run: " + one_line(shell_command(command)) + "\n";
    }
    Arguments steps(" = ");
    const bool has_quotes = table.kind != Kind::lines && table.kind != Kind::fixed_width;
    steps.add("Source", "Csv.Document(File.Contents(" + m_text(file) + "), [Delimiter = " +
                            delimiter(table) + ", Columns = " + std::to_string(names.size()) +
                            ", Encoding = " + encoding_of(table.encoding).code_page +
                            ", QuoteStyle = QuoteStyle." + (has_quotes ? "Csv" : "None") + "])");
    std::string last = "Source";
    if (table.skipped_lines > 0) {
        steps.add("Data", "Table.Skip(Source, " + std::to_string(table.skipped_lines) + ")");
        last = "Data";
    }
    steps.add("Named", "Table.RenameColumns(" + last + ", " + pairs(numbered, names) + ")");
    last = "Named";
    for (std::size_t i = 0; i < table.missing.size(); ++i) {
        const std::string step = "Present" + std::to_string(i + 1);
        steps.add(step, "Table.ReplaceValue(" + last + ", " + m_text(table.missing[i]) +
                            ", null, Replacer.ReplaceValue, {" + joined(names, ", ") + "})");
        last = step;
    }
    add_types(steps, table, names, last);
    return start + "let\n" + steps.lines("    ", false) + "in\n    " + last + "\n";
}

} // namespace import_statements
