#include "textio/reading.hpp"

#include <algorithm>

namespace textio::reading {

namespace {

std::u16string_view trimmed(std::u16string_view text, std::u16string_view whitespace) {
    const std::size_t first = text.find_first_not_of(whitespace);
    return first == std::u16string_view::npos
               ? std::u16string_view()
               : text.substr(first, text.find_last_not_of(whitespace) + 1 - first);
}

/// Where the quote stands that closes the quoted part at the start of `text`, or `text.size()`.
std::size_t closing_quote(std::u16string_view text, char16_t quote) {
    for (std::size_t at = text.find(quote, 1); at != std::u16string_view::npos;
         at = text.find(quote, at + 2)) {
        if (at + 1 == text.size() || text[at + 1] != quote) {
            return at;
        }
    }
    return text.size();
}

/// Adds the inside of a quoted part to `buffer`, of doubled quotes one each.
void add_without_doubling(std::u16string_view inside, char16_t quote, std::u16string& buffer) {
    for (std::size_t at = inside.find(quote); at != std::u16string_view::npos;
         at = inside.find(quote)) {
        buffer.append(inside.substr(0, at + 1));
        inside.remove_prefix(std::min(at + 2, inside.size()));
    }
    buffer.append(inside);
}

} // namespace

std::u16string_view cell_value(const Field& cell, const parser::options& options,
                               std::u16string& buffer) {
    const std::u16string_view text = trimmed(cell.view(), options.whitespace);
    const char16_t quote = options.quote;
    if (text.empty() || text.front() != quote) {
        return text;
    }
    const std::size_t closing = closing_quote(text, quote);
    const bool ends_at_delimiters = options.reader_kind == parser::record_reader::delimited;
    if (!ends_at_delimiters && closing + 1 != text.size()) {
        return text;
    }
    const std::u16string_view inside = text.substr(1, closing - 1);
    const std::u16string_view behind = text.substr(std::min(closing + 1, text.size()));
    if (behind.empty() && inside.find(quote) == std::u16string_view::npos) {
        return inside;
    }
    buffer.clear();
    add_without_doubling(inside, quote, buffer);
    buffer.append(behind);
    return buffer;
}

} // namespace textio::reading
