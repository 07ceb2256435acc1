#include "address.hpp"
#include "search/punctuation_search.hpp"
#include "textio/candidates.hpp"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace textio::detection {

namespace {

/// Quotes, brackets, signs and the like stand inside values too often to be tried, and line endings
/// separate records.
constexpr std::u16string_view never_delimiters = u"\"$'()+-@[]{}\n\r\x1A";

/// Whether a unit of ASCII that is no letter or digit can be a delimiter.
constexpr bool can_be_delimiter(char16_t unit) {
    return never_delimiters.find(unit) == std::u16string_view::npos;
}

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

using Lines = std::vector<Field>::const_iterator;

const char16_t* end_of(const Field& line) {
    return line.data + line.size;
}

bool is_filled(const Field& line) {
    return line.size > 0;
}

/// The line that is entry `number`. Only lines with text are entries.
Lines find_entry(const std::vector<Field>& lines, std::size_t entries, std::size_t number) {
    if (entries == lines.size()) {
        return lines.begin() + static_cast<std::ptrdiff_t>(number);
    }
    auto line = std::find_if(lines.begin(), lines.end(), is_filled);
    for (; number > 0; --number) {
        line = std::find_if(line + 1, lines.end(), is_filled);
    }
    return line;
}

/// Whether nothing but a usual line ending, or nothing at all, stands between two lines.
bool stand_together(const Field& line, const Field& next) {
    constexpr std::uintptr_t longest_gap = 2 * sizeof(char16_t);
    const auto end = address_of(end_of(line));
    const auto begin = address_of(next.data);
    return begin >= end && begin - end <= longest_gap &&
           std::all_of(end_of(line), next.data,
                       [](char16_t unit) { return unit == u'\n' || unit == u'\r'; });
}

/// Appends the units from `begin` up to `end` that can be delimiters and that `search` does not
/// know yet. Gives the first `end_of_text` on the way, or `end`.
const char16_t* add_delimiters(const char16_t* begin, const char16_t* end,
                               PunctuationSearch& search, std::u16string& delims) {
    const char16_t* at = search.next(begin, end);
    for (; at != end && *at != end_of_text; at = search.next(at + 1, end)) {
        search.add_known(*at);
        if (can_be_delimiter(*at)) {
            delims.push_back(*at);
        }
    }
    return at;
}

/// The same for lines that stand together, in one go. Lines end at places that a processor cannot
/// predict, so stopping at each end would cost as much as looking at the line. An `end_of_text`
/// ends only its own line.
void add_delimiters(Lines line, Lines last, PunctuationSearch& search, std::u16string& delims) {
    while (line != last) {
        const char16_t* const end = end_of(*(last - 1));
        const char16_t* const at = add_delimiters(line->data, end, search, delims);
        line = at == end
                   ? last
                   : std::upper_bound(line, last, at, [](const char16_t* unit, const Field& next) {
                         return unit < next.data;
                     });
    }
}

} // namespace

void add_delims_from_line(const Field& line, std::u16string& delims) {
    PunctuationSearch search(delims);
    add_delimiters(line.data, end_of(line), search, delims);
}

std::u16string get_candidate_delims(const FieldArray& lines) {
    const auto entries = static_cast<std::size_t>(
        std::count_if(lines.fields.begin(), lines.fields.end(), is_filled));
    const auto [first, last] = telling_entries(entries);
    std::u16string delims;
    PunctuationSearch search(delims);
    const auto end = find_entry(lines.fields, entries, last);
    for (auto line = find_entry(lines.fields, entries, first); line != end;) {
        const auto apart = std::adjacent_find(
            line, end, [](const Field& a, const Field& b) { return !stand_together(a, b); });
        const auto next = apart == end ? end : apart + 1;
        add_delimiters(line, next, search, delims);
        line = std::find_if(next, end, is_filled);
    }
    return delims;
}

} // namespace textio::detection
