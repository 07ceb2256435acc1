#include "search/unit_search.hpp"
#include "textio/field.hpp"

#include <algorithm>

namespace textio::output {

namespace {

bool is_blank(const Field& field, const std::u16string& whitespace) {
    constexpr std::size_t worth_a_search = 512; // code units
    return field.size < worth_a_search
               ? field.view().find_first_not_of(whitespace) == std::u16string_view::npos
               : parser::UnitSearch(whitespace).skip(field, 0) == field.size;
}

} // namespace

void DetectionOutputBuilder::add_record(const Field& record_text, const Record& record) {
    const std::vector<std::size_t>& spans = record.spans;
    const std::size_t count = spans.size() / 2;
    const auto field = [&](std::size_t index) {
        const std::size_t start = spans[2 * index];
        return Field(record_text.data + start, spans[2 * index + 1] - start);
    };
    if (count == 0 || (count == 1 && is_blank(field(0), *whitespace))) {
        field_array->add_empty_line();
        return;
    }
    const std::size_t kept = limit_fields ? std::min(count, field_limit) : count;
    std::vector<Field>& fields = field_array->fields;
    const std::size_t before = fields.size();
    try {
        for (std::size_t index = 0; index < kept; ++index) {
            fields.push_back(field(index));
        }
        field_array->line_ends.push_back(fields.size());
    } catch (...) {
        fields.resize(before);
        throw;
    }
}

} // namespace textio::output
