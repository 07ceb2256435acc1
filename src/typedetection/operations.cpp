#include "typedetection/number_scanner.hpp"

#include "textio/type_analyzer.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace textio::operations {

namespace {

/// The units of the field's private copy from `position` on.
std::span<char16_t> writable_units_from(MutableField& field, std::size_t position) {
    return std::span(field.writable_units(), field.size).subspan(position);
}

void cut_off_ends(MutableField& field, std::u16string_view units) {
    field.size = field.view().find_last_not_of(units) + 1;
    field.advance(field.view().find_first_not_of(units));
}

/// How many times `quote` stands in a row at `position`.
std::size_t quotes_at(std::u16string_view text, std::size_t position, char16_t quote) {
    return std::min(text.find_first_not_of(quote, position), text.size()) - position;
}

/// How many quotes of a run go: the second of each two, and the closing one if it is left over.
std::size_t quotes_lost(std::size_t run) {
    return run / 2 + run % 2;
}

/// Takes the quotes out of a text in whose middle they stand, the first at `first_quote`.
void take_quotes_out(MutableField& field, std::size_t first_quote, char16_t quote) {
    const std::span<char16_t> units = writable_units_from(field, first_quote);
    auto unread = units.begin();
    auto kept_end = units.begin();
    while (unread != units.end()) { // at a quote: the first of two, or the closing one
        const bool doubled = unread + 1 != units.end() && unread[1] == quote;
        if (doubled) {
            *kept_end++ = *unread++;
        }
        ++unread;
        const auto next_quote = doubled ? std::find(unread, units.end(), quote) : units.end();
        kept_end = std::copy(unread, next_quote, kept_end);
        unread = next_quote;
    }
    field.size -= static_cast<std::size_t>(units.end() - kept_end);
}

bool contains(std::u16string_view units, char16_t unit) {
    return units.find(unit) != std::u16string_view::npos;
}

} // namespace

void trim_whitespace::process(MutableField& field) const {
    cut_off_ends(field, whitespace);
}

void unquote::process(MutableField& field) const {
    if (!field.view().starts_with(quote)) {
        return;
    }
    field.advance(1);
    // Quotes in a row are alike, so those that go at either end of the text are cut off there.
    const std::size_t at_front = quotes_at(field.view(), 0, quote);
    field.advance(quotes_lost(at_front));
    const bool is_closed = at_front % 2 != 0;
    const std::size_t first_quote =
        is_closed ? std::u16string_view::npos : field.view().find(quote, at_front / 2);
    if (first_quote == std::u16string_view::npos) {
        return;
    }
    const std::size_t run = quotes_at(field.view(), first_quote, quote);
    if (first_quote + run == field.size) {
        field.size -= quotes_lost(run);
    } else {
        take_quotes_out(field, first_quote, quote);
    }
}

void treat_as_missing::process(MutableField& field) const {
    if (std::find(texts.begin(), texts.end(), field.view()) != texts.end()) {
        field.size = 0;
    }
}

void replace_characters::process(MutableField& field) const {
    const std::size_t first = field.view().find_first_of(replaced);
    if (first == std::u16string_view::npos) {
        return;
    }
    const std::span<char16_t> units = writable_units_from(field, first);
    std::replace_if(
        units.begin(), units.end(), [this](char16_t unit) { return contains(replaced, unit); },
        replacement);
}

void remove_characters::process(MutableField& field) const {
    cut_off_ends(field, removed);
    const std::size_t first = field.view().find_first_of(removed);
    if (first == std::u16string_view::npos) {
        return;
    }
    const std::span<char16_t> units = writable_units_from(field, first);
    const auto kept_end = std::remove_if(units.begin(), units.end(),
                                         [this](char16_t unit) { return contains(removed, unit); });
    field.size -= static_cast<std::size_t>(units.end() - kept_end);
}

void trim_non_numeric::process(MutableField& field) const {
    using namespace zentor::io::text::typedetection;
    constexpr std::u16string_view number_starts = u"0123456789+-.";
    constexpr std::u16string_view exponent_characters = u"eEdD";

    const std::u16string_view text = field.view();
    if (starts_with_spelled_number(text)) {
        return;
    }
    std::size_t start = text.find_first_of(number_starts);
    while (start != std::u16string_view::npos) {
        const std::size_t end = scan_number(text, start, exponent_characters);
        if (end != start) {
            field.advance(start);
            field.size = end - start;
            return;
        }
        start = text.find_first_of(number_starts, start + 1);
    }
}

} // namespace textio::operations
