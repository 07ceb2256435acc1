#include "textio/field.hpp"

#include <algorithm>

namespace textio {

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
    try {
        fields.insert(fields.end(), first, last);
    } catch (...) {
        line_ends.pop_back();
        throw;
    }
}

} // namespace textio
