#include "detection/punctuation_search.hpp"
#include "textio/candidates.hpp"

#include <algorithm>
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

/// Appends the units of `line` that can be delimiters and that `search` does not know yet.
void add_delimiters(const Field& line, PunctuationSearch& search, std::u16string& delims) {
    const char16_t* const end = line.data + line.size;
    for (const char16_t* at = search.next(line.data, end); at != end && *at != end_of_text;
         at = search.next(at + 1, end)) {
        search.add_known(*at);
        if (can_be_delimiter(*at)) {
            delims.push_back(*at);
        }
    }
}

} // namespace

void add_delims_from_line(const Field& line, std::u16string& delims) {
    PunctuationSearch search(delims);
    add_delimiters(line, search, delims);
}

std::u16string get_candidate_delims(const FieldArray& lines) {
    const auto is_filled = [](const Field& field) { return field.size > 0; };
    const auto [first, last] =
        telling_entries(static_cast<std::size_t>(std::ranges::count_if(lines.fields, is_filled)));
    std::u16string delims;
    PunctuationSearch search(delims);
    std::size_t entry = 0;
    for (auto field = lines.fields.begin(); entry < last; ++field) {
        if (!is_filled(*field)) {
            continue;
        }
        if (entry >= first) {
            add_delimiters(*field, search, delims);
        }
        ++entry;
    }
    return delims;
}

} // namespace textio::detection
