#include "textio/candidates.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace textio::detection {

namespace {

constexpr std::size_t ascii_units = 128;

constexpr bool is_letter_or_digit(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'0' && unit <= u'9');
}

/// Quotes, brackets, signs and the like stand inside values too often to be tried, and line endings
/// separate records.
constexpr std::u16string_view never_delimiters = u"\"$'()+-@[]{}\n\r\x1A";

/// Which ASCII units can be delimiters.
constexpr std::array<bool, ascii_units> can_be_delimiter = [] {
    std::array<bool, ascii_units> can_be{};
    for (std::size_t i = 0; i < ascii_units; ++i) {
        const auto unit = static_cast<char16_t>(i);
        can_be[i] =
            !is_letter_or_digit(unit) && never_delimiters.find(unit) == std::u16string_view::npos;
    }
    return can_be;
}();

/// The run of entries that give candidates: the middle of the sample, as header and footer hold
/// characters that separate nothing.
struct EntryRange {
    std::size_t first;
    std::size_t last; ///< one past the last
};

EntryRange telling_entries(std::size_t entries) {
    constexpr std::size_t few_entries = 5;
    if (entries <= 1) {
        return {0, entries};
    }
    if (entries <= few_entries) {
        return {1, entries};
    }
    return {(entries + 2) / 3, 5 * entries / 6};
}

} // namespace

void add_delims_from_line(const Field& line, std::u16string& delims) {
    for (const char16_t unit : line.view()) {
        if (unit == end_of_text) {
            return;
        }
        if (unit < ascii_units && can_be_delimiter[unit] &&
            delims.find(unit) == std::u16string::npos) {
            delims.push_back(unit);
        }
    }
}

std::u16string get_candidate_delims(const FieldArray& lines) {
    const auto is_filled = [](const Field& field) { return field.size > 0; };
    const auto [first, last] =
        telling_entries(static_cast<std::size_t>(std::ranges::count_if(lines.fields, is_filled)));
    std::u16string delims;
    std::size_t entry = 0;
    for (const Field& field : lines.fields) {
        if (!is_filled(field)) {
            continue;
        }
        if (entry >= first && entry < last) {
            add_delims_from_line(field, delims);
        }
        ++entry;
    }
    return delims;
}

} // namespace textio::detection
