#include "c/json_writer.hpp"
#include "c/layout.hpp"

namespace textio::c {

namespace {

void add_text(JsonWriter& json, std::string_view key, std::string_view text) {
    json.key(key);
    json.text(text);
}

void add_number(JsonWriter& json, std::string_view key, std::size_t number) {
    json.key(key);
    json.number(number);
}

void add_if_any(JsonWriter& json, std::string_view key, const OptionalText& text) {
    json.key(key);
    if (text) {
        json.text(*text);
    } else {
        json.null();
    }
}

void add_line(JsonWriter& json, std::string_view key, std::size_t line) {
    json.key(key);
    if (line == advice::no_line) {
        json.null();
    } else {
        json.number(line);
    }
}

void add_columns(JsonWriter& json, const std::vector<ToldColumn>& columns) {
    json.key("columns");
    json.open_list();
    for (const ToldColumn& column : columns) {
        json.open_object();
        add_text(json, "name", column.name);
        add_text(json, "class", column.type);
        add_number(json, "values", column.values);
        add_number(json, "missing", column.missing);
        json.close_object();
    }
    json.close_list();
}

/// What a reader of the table has to know of it.
void add_reading(JsonWriter& json, const ToldProposal& proposal) {
    add_text(json, "kind", proposal.kind);
    add_if_any(json, "delimiter", proposal.delimiter);
    json.key("widths");
    json.open_list();
    for (const std::size_t width : proposal.widths) {
        json.number(width);
    }
    json.close_list();
    add_number(json, "header_lines", proposal.reading.strategy->header_lines());
    add_number(json, "num_variables", proposal.columns.size());
    add_line(json, "names_line", proposal.reading.names_line);
    add_number(json, "first_data_line", proposal.reading.first_data_line);
    add_if_any(json, "quote", proposal.quote);
    add_if_any(json, "comment", proposal.comment);
    add_if_any(json, "comment_end", proposal.comment_end);
    add_if_any(json, "decimal", proposal.decimal);
    add_if_any(json, "thousands", proposal.thousands);
    add_columns(json, proposal.columns);
    add_text(json, "why", proposal.why);
}

void add_grade(JsonWriter& json, const ToldProposal& proposal, bool is_by_rules) {
    add_number(json, "regular_rows", proposal.reading.regular_rows);
    add_number(json, "rows", proposal.reading.rows);
    json.key("score");
    if (is_by_rules) {
        json.null();
    } else {
        json.number(proposal.reading.score);
    }
    json.key("terms");
    json.open_object();
    for (const ToldTerm& term : proposal.terms) {
        json.key(term.name);
        json.number(term.value);
    }
    json.close_object();
}

} // namespace

std::string json_of(const textio_layout& layout) {
    JsonWriter json;
    json.open_object();
    add_reading(json, layout.proposals.front());
    json.key("is_table");
    json.boolean(layout.is_table);
    json.key("confidence");
    if (layout.confidence) {
        json.number(*layout.confidence);
    } else {
        json.null();
    }
    add_number(json, "rows", layout.data_rows);
    json.key("proposals");
    json.open_list();
    for (const ToldProposal& proposal : layout.proposals) {
        json.open_object();
        add_reading(json, proposal);
        add_grade(json, proposal, layout.is_by_rules());
        json.close_object();
    }
    json.close_list();
    json.close_object();
    return json.take();
}

} // namespace textio::c
