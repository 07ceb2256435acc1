#include "textio/field.hpp"

#include "parser/unit_search.hpp"

#include <algorithm>

namespace textio {

namespace {

bool is_blank(const Field& field, const std::u16string& whitespace) {
    constexpr std::size_t worth_a_search = 512; // code units
    return field.size < worth_a_search
               ? field.view().find_first_not_of(whitespace) == std::u16string_view::npos
               : parser::UnitSearch(whitespace).skip(field, 0) == field.size;
}

} // namespace

MutableField::~MutableField() {
    if (owns_copy && copy_begin != inline_units) {
        delete[] copy_begin;
    }
}

char16_t* MutableField::writable_units() {
    if (!owns_copy) {
        copy_begin = size < std::size(inline_units) ? inline_units : new char16_t[size];
        copy_end = std::copy_n(data, size, copy_begin);
        owns_copy = true;
        data = copy_begin;
    }
    return copy_begin + (data - copy_begin);
}

void FieldArray::add_empty_line() {
    line_ends.push_back(line_ends.empty() ? 0 : line_ends.back());
}

void FieldArray::add_line(const Field* first, const Field* last, std::size_t count) {
    line_ends.push_back((line_ends.empty() ? 0 : line_ends.back()) + count);
    fields.insert(fields.end(), first, last);
}

namespace output {

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
    for (std::size_t index = 0; index < kept; ++index) {
        fields.push_back(field(index));
    }
    field_array->line_ends.push_back(fields.size());
}

} // namespace output
} // namespace textio
