#include "advice/names_above.hpp"

#include "advice/cell_kind.hpp"
#include "advice/comments.hpp"
#include "advice/heading.hpp"
#include "advice/lines.hpp"
#include "advice/names_over_columns.hpp"
#include "advice/number_shape.hpp"

#include <algorithm>
#include <utility>

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
    std::size_t end = text.find(delimiter);
    while (end != std::u16string_view::npos) {
        parts.push_back(trimmed(text.substr(0, end)));
        text.remove_prefix(end + delimiter.size());
        end = text.find(delimiter);
    }
    parts.push_back(trimmed(text));
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

/// Words, or parts with more than one blank between them where these fit better.
Words parts_at_blanks(std::u16string_view text, std::size_t columns) {
    Words words = words_of(text, 1);
    Words parts = words_of(text, 2);
    const bool are_single = words.size() == columns ||
                            (!can_head(parts.size(), columns) && !reads_like_a_sentence(text));
    return are_single ? words : parts;
}

void leave_out_empty_edges(const Reading& reading, Words& parts) {
    if (reading.edges.leading && parts.front().empty()) {
        parts.erase(parts.begin());
    }
    while (reading.edges.trailing != 0 && parts.size() > reading.columns && parts.back().empty()) {
        parts.pop_back();
    }
}

/// In a comment a word may stand in front of the names, and a last name may be missing.
void fit_comment(std::size_t columns, Words& parts) {
    if (parts.size() == columns + 1) {
        parts.erase(parts.begin());
    } else if (columns > 2 && parts.size() + 1 == columns) {
        parts.emplace_back();
    }
}

Words parts_at_delimiter(const Reading& reading, std::u16string_view text, bool is_comment) {
    Words parts = split(text, reading.delimiter);
    leave_out_empty_edges(reading, parts);
    if (is_comment) {
        fit_comment(reading.columns, parts);
    }
    return parts.size() == reading.columns ? parts : words_of(text, 1);
}

/// Parts between other signs, if one cuts a line into as many as the table has columns.
Words parts_between_signs(std::u16string_view text, std::size_t columns) {
    constexpr std::size_t least_columns = 3; // a sentence may have a comma
    if (columns < least_columns) {
        return {};
    }
    for (const std::u16string_view sign : {u"\t", u"|", u";", u","}) {
        Words parts = split(text, sign);
        const bool are_full =
            std::find(parts.begin(), parts.end(), std::u16string_view()) == parts.end();
        if (parts.size() == columns && are_full) {
            return parts;
        }
    }
    return {};
}

/// The parts of a line that may be names, cut as the table's rows are.
Words parts_of(const Reading& reading, std::u16string_view text, bool is_comment) {
    if (reading.is_at_positions()) {
        return words_of(text, 2);
    }
    return reading.is_blank_separated() ? parts_at_blanks(text, reading.columns)
                                        : parts_at_delimiter(reading, text, is_comment);
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

    /// Whether no line above it is looked at. A ruler or a single word may stand between the names
    /// and the data, no sentence. Names in comments may have a line of types below them.
    [[nodiscard]] bool ends_search(bool has_found_names) const {
        return has_names ? !is_comment : has_found_names || parts > 1;
    }
};

/// Whether a line can head the table though its parts are not as many as the columns.
bool can_head_apart(const Reading& reading, const HeadingLine& heading) {
    return !reading.is_delimited() && can_head(heading.parts, reading.columns) &&
           (!heading.is_comment || reading.is_at_positions());
}

/// Takes the words over each column for its name. Words that stand flush over most columns are
/// names, however few blanks are between them.
void cut_over_columns(const Reading& reading, const FieldArray& raw_lines,
                      std::size_t first_data_line, std::u16string_view text, HeadingLine& heading) {
    if (!reading.is_at_positions() && !(heading.has_names && reading.is_blank_separated())) {
        return;
    }
    NamesOverColumns over = cut_heading(reading, raw_lines, first_data_line, text);
    heading.has_names = heading.has_names || (over.stand_flush && !are_mostly_numbers(over.names));
    if (heading.has_names) {
        heading.names = std::move(over.names);
    }
}

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
        Words between_signs = parts_between_signs(said, reading.columns);
        if (!between_signs.empty()) {
            parts = std::move(between_signs);
        }
    }
    const bool fits = parts.size() == reading.columns;
    heading.has_names = (fits || can_head_apart(reading, heading)) && !are_mostly_numbers(parts);
    if (fits) {
        heading.names = heading.has_names ? std::move(parts) : Words();
    } else if (!heading.is_comment) {
        cut_over_columns(reading, raw_lines, first_data_line, text, heading);
    }
    return heading;
}

} // namespace

NamesAbove find_names_above(const Reading& reading, const FieldArray& raw_lines,
                            std::u16string_view opener, std::size_t first_data_line) {
    constexpr std::size_t most_lines = 4;
    NamesAbove found;
    const std::size_t below = std::min(first_data_line, raw_lines.line_count());
    const std::size_t last = below - std::min(below, most_lines);
    for (std::size_t line = below; line > last; --line) {
        HeadingLine heading = heading_at(reading, raw_lines, opener, line - 1, first_data_line);
        const bool is_last = heading.ends_search(found.line != SIZE_MAX);
        if (heading.has_names) {
            found = {line - 1, std::move(heading.names)};
        }
        if (is_last) {
            break;
        }
    }
    return found;
}

} // namespace textio::advice
