#include "search/guarded_delim.hpp"

#include "textio/platform/delimiter_set.hpp"

namespace textio::parser {

namespace {

/// The first units of the strings of at least `least_size` units, and of at most `most_size`.
std::u16string first_units_of(const std::vector<std::u16string>& strings, std::size_t least_size,
                              std::size_t most_size) {
    std::u16string units;
    for (const std::u16string& string : strings) {
        if (string.size() >= least_size && string.size() <= most_size) {
            units.push_back(string.front());
        }
    }
    return units;
}

/// `end_of_text` is left out: whether it matches depends on what is left of the text.
std::u16string units_that_match_alone(const std::vector<std::u16string>& strings) {
    const UnitSet not_alone(first_units_of(strings, 2, SIZE_MAX) + end_of_text);
    std::u16string units = first_units_of(strings, 1, 1);
    std::erase_if(units, [&not_alone](char16_t unit) { return not_alone.contains(unit); });
    return units;
}

} // namespace

GuardedDelim::GuardedDelim(const std::vector<std::u16string>& strings)
    : first_units_(first_units_of(strings, 1, SIZE_MAX)),
      lone_units_(units_that_match_alone(strings)) {
    if (!only_lone_units()) {
        strings_ = SetInText(get_or_create_delim(strings));
    }
}

Boundary find_boundary(const UnitSearch& stops, const GuardedDelim& ends,
                       const GuardedDelim* barriers, const Field& text, std::size_t from) noexcept {
    for (std::size_t at = from; text.unit_at(at) != end_of_text; ++at) {
        at = stops.next(text, at);
        if (text.unit_at(at) == end_of_text ||
            (barriers != nullptr && barriers->match_at(text, at) != 0)) {
            return {at, 0};
        }
        if (const std::size_t length = ends.match_at(text, at); length != 0) {
            return {at, length};
        }
        from = at + 1;
    }
    return {from, 0};
}

} // namespace textio::parser
