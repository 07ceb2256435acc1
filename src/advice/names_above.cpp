#include "advice/names_above.hpp"

#include "advice/cell_kind.hpp"
#include "advice/comments.hpp"
#include "advice/heading.hpp"
#include "advice/lines.hpp"
#include "advice/names_over_columns.hpp"
#include "advice/number_shape.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

using Words = std::vector<std::u16string_view>;

Words words_of(std::u16string_view text, std::size_t gap) {
    Words words;
    for (const HeadingWord& word : heading_words(text, gap)) {
        words.push_back(text.substr(word.begin, word.end - word.begin));
    }
    return words;
}

Words split(std::u16string_view text, std::u16string_view delimiter) {
    Words parts;
    std::size_t at = 0;
    while (at != std::u16string_view::npos) {
        parts.push_back(trimmed(text.substr(0, at = text.find(delimiter))));
        text = at == std::u16string_view::npos ? text : text.substr(at + delimiter.size());
    }
    return parts;
}

/// A comment without its opener, however often that stands in front.
std::u16string_view without_opener(std::u16string_view line, std::u16string_view opener) {
    std::u16string_view text = trimmed(line);
    while (text.starts_with(opener)) {
        text.remove_prefix(opener.size());
    }
    return trimmed(text);
}

/// Whether so many words can head so many columns though they cannot be told apart.
bool can_head(std::size_t words, std::size_t columns) {
    return words > 1 && words * 5 >= columns * 3 && words * 2 <= columns * 3;
}

/// The parts of a line that may be names, cut as the table's rows are. In a comment a word may
/// stand in front of the names, and a last name may be missing.
Words parts_of(const Reading& reading, std::u16string_view text, bool is_comment) {
    if (reading.is_at_positions()) {
        return words_of(text, 2);
    }
    if (reading.is_blank_separated()) {
        Words words = words_of(text, 1);
        Words parts = words_of(text, 2);
        const bool are_single =
            words.size() == reading.columns ||
            (!can_head(parts.size(), reading.columns) && !reads_like_a_sentence(text));
        return are_single ? words : parts;
    }
    Words parts = split(text, reading.delimiter);
    if (reading.edges.leading && parts.front().empty()) {
        parts.erase(parts.begin());
    }
    while (reading.edges.trailing != 0 && parts.size() > reading.columns && parts.back().empty()) {
        parts.pop_back();
    }
    if (is_comment && parts.size() == reading.columns + 1) {
        parts.erase(parts.begin());
    } else if (is_comment && reading.columns > 2 && parts.size() + 1 == reading.columns) {
        parts.emplace_back();
    }
    return parts.size() == reading.columns ? parts : words_of(text, 1);
}

/// Parts between other signs, if one cuts a line into as many as the table has columns.
Words parts_between_signs(const Reading& reading, std::u16string_view text) {
    constexpr std::size_t least_columns = 3; // a sentence may have a comma
    if (reading.columns >= least_columns) {
        for (const std::u16string_view sign : {u"\t", u"|", u";", u","}) {
            Words parts = split(text, sign);
            if (parts.size() == reading.columns &&
                std::count(parts.begin(), parts.end(), std::u16string_view()) == 0) {
                return parts;
            }
        }
    }
    return {};
}

bool are_mostly_numbers(const Words& words) {
    const auto numbers = std::count_if(words.begin(), words.end(), looks_like_number);
    return static_cast<std::size_t>(numbers) * 3 > words.size();
}

/// What one line above a table says.
struct HeadingLine {
    bool has_names = false;
    bool is_comment = false;
    std::size_t parts = 0; ///< parts that it was cut into
    Words names;           ///< empty if they cannot be told apart
};

HeadingLine heading_at(const Reading& reading, const FieldArray& raw_lines,
                       std::u16string_view opener, std::size_t line, std::size_t first_data_line) {
    HeadingLine heading;
    const std::u16string_view text = text_of(raw_lines, line);
    heading.is_comment = is_comment(text, opener);
    const std::u16string_view said =
        heading.is_comment ? without_opener(text, opener) : trimmed(text);
    if (!has_letter(said)) {
        return heading;
    }
    Words parts = parts_of(reading, said, heading.is_comment);
    heading.parts = parts.size();
    if (parts.size() != reading.columns) {
        const Words between_signs = parts_between_signs(reading, said);
        parts = between_signs.empty() ? parts : between_signs;
    }
    const bool fits = parts.size() == reading.columns;
    const bool heads = !reading.is_delimited() && can_head(parts.size(), reading.columns) &&
                       (!heading.is_comment || reading.is_at_positions());
    heading.has_names = (fits || heads) && !are_mostly_numbers(parts);
    if (heading.has_names && fits) {
        heading.names = std::move(parts);
    } else if (!heading.is_comment &&
               (reading.is_at_positions() || (heading.has_names && reading.is_blank_separated()))) {
        NamesOverColumns over = cut_heading(reading, raw_lines, first_data_line, text);
        heading.has_names =
            heading.has_names || (over.stand_flush && !are_mostly_numbers(over.names));
        heading.names = heading.has_names ? std::move(over.names) : Words();
    }
    return heading;
}

} // namespace

NamesAbove find_names_above(const Reading& reading, const FieldArray& raw_lines,
                            std::u16string_view opener, std::size_t first_data_line) {
    constexpr std::size_t most_lines = 4;
    NamesAbove found;
    std::size_t line = std::min(first_data_line, raw_lines.line_count());
    for (std::size_t looked_at = 0; line > 0 && looked_at < most_lines; ++looked_at) {
        --line;
        const HeadingLine heading = heading_at(reading, raw_lines, opener, line, first_data_line);
        if (heading.has_names) {
            found.line = line;
            found.names = heading.names;
        }
        // A ruler or a single word may stand between the names and the data, no sentence. Names in
        // comments may have a line of types below them.
        const bool ends =
            heading.has_names ? !heading.is_comment : found.line != SIZE_MAX || heading.parts > 1;
        if (ends) {
            break;
        }
    }
    return found;
}

} // namespace textio::advice
