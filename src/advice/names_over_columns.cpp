#include "advice/names_over_columns.hpp"

#include "advice/counts.hpp"
#include "advice/heading.hpp"
#include "advice/lines.hpp"

#include <algorithm>
#include <span>

namespace textio::advice {

namespace {

/// Where the values of a column begin and end, in code units from the start of a line.
struct Extent {
    std::size_t begin = SIZE_MAX;
    std::size_t end = 0;

    /// Takes in a value of a line that begins at `line`.
    void add(std::u16string_view value, const char16_t* line) {
        if (!value.empty()) {
            const auto first = static_cast<std::size_t>(value.data() - line);
            begin = std::min(begin, first);
            end = std::max(end, first + value.size());
        }
    }
};

constexpr std::size_t looked_at = 40; ///< lines below a heading

std::vector<Extent> extents_at_positions(const Positions& positions, const FieldArray& raw_lines,
                                         std::size_t first_line) {
    std::vector<Extent> extents(positions.starts.size());
    const std::size_t end = std::min(first_line + looked_at, raw_lines.line_count());
    for_each_filled_line(raw_lines, first_line, end, [&](std::size_t, std::u16string_view text) {
        for (std::size_t column = 0; column < extents.size(); ++column) {
            extents[column].add(trimmed(cell_at(text, positions, column)), text.data());
        }
    });
    return extents;
}

/// Adds the fields of a row, as far from the start of its line as they stand.
void add_row(std::span<const Field> fields, const FieldArray& raw_lines,
             std::vector<Extent>& extents) {
    const std::size_t line = line_of(raw_lines, fields.front().data);
    const char16_t* const begin = text_of(raw_lines, line).data();
    for (std::size_t column = 0; column < fields.size(); ++column) {
        extents[column].add(fields[column].view(), begin);
    }
}

bool overlap(const Extent& left, const Extent& right) {
    return left.end > right.begin;
}

/// Of a table that is cut at blanks; empty if its columns do not stand apart.
std::vector<Extent> extents_between_blanks(const Reading& reading, const FieldArray& raw_lines) {
    const FieldArray& sample = *reading.strategy->field_array();
    std::vector<Extent> extents(reading.columns);
    const std::size_t first = reading.run.first_line;
    const std::size_t behind = std::min(reading.run.last_line + 1, sample.line_count());
    for (std::size_t line = first; line < std::min(first + looked_at, behind); ++line) {
        if (sample.line(line).size() == reading.columns) {
            add_row(sample.line(line), raw_lines, extents);
        }
    }
    const bool stand_apart =
        std::adjacent_find(extents.begin(), extents.end(), overlap) == extents.end();
    return stand_apart ? extents : std::vector<Extent>();
}

bool is_of_numbers(const Reading& reading, std::size_t column) {
    const auto& columns = reading.figures.columns;
    return column < columns.size() && columns[column].is_typed();
}

/// Where each column but the first begins for a name. Numbers stand at the right of theirs, so a
/// longer name over them begins where the column before ends; other names begin with the values.
std::vector<std::size_t> starts_of_names(const Reading& reading,
                                         const std::vector<Extent>& extents) {
    std::vector<std::size_t> starts;
    for (std::size_t column = 1; column < extents.size(); ++column) {
        const std::size_t start =
            reading.is_at_positions() ? reading.positions.starts[column] : extents[column].begin;
        const std::size_t end_before = extents[column - 1].end;
        const bool is_before = is_of_numbers(reading, column) && end_before != 0;
        starts.push_back(is_before ? std::min(start, end_before) : start);
    }
    return starts;
}

bool is_flush(const HeadingWord& word, const Extent& extent) {
    return word.begin == extent.begin || word.end == extent.end;
}

/// A word belongs to the column that its middle is over, or to one beside it where it stands flush.
std::size_t column_of(const HeadingWord& word, const std::vector<Extent>& extents,
                      const std::vector<std::size_t>& starts) {
    const auto behind = std::upper_bound(starts.begin(), starts.end(), (word.begin + word.end) / 2);
    const auto under = static_cast<std::size_t>(behind - starts.begin());
    const std::size_t first = under - std::min<std::size_t>(under, 1);
    const std::size_t end = std::min(under + 2, extents.size());
    for (std::size_t column = first; column < end; ++column) {
        if (is_flush(word, extents[column])) {
            return column;
        }
    }
    return under;
}

std::vector<HeadingWord> places_of_names(std::u16string_view heading,
                                         const std::vector<Extent>& extents,
                                         const std::vector<std::size_t>& starts) {
    std::vector<HeadingWord> places(extents.size());
    for (const HeadingWord& word : heading_words(heading, 1)) {
        HeadingWord& place = places[column_of(word, extents, starts)];
        place = {place.end == 0 ? word.begin : place.begin, word.end};
    }
    return places;
}

/// Whether most columns have a name, and most names stand flush with the values.
bool stand_flush(const std::vector<HeadingWord>& places, const std::vector<Extent>& extents) {
    std::size_t named = 0;
    std::size_t flush = 0;
    for (std::size_t column = 0; column < places.size(); ++column) {
        const bool is_named = places[column].end != 0;
        named += one_if(is_named);
        flush += one_if(is_named && is_flush(places[column], extents[column]));
    }
    return named > 1 && named * 5 >= places.size() * 3 && flush * 4 >= named * 3;
}

} // namespace

NamesOverColumns cut_heading(const Reading& reading, const FieldArray& raw_lines,
                             std::size_t first_data_line, std::u16string_view heading) {
    const std::vector<Extent> extents =
        reading.is_at_positions()
            ? extents_at_positions(reading.positions, raw_lines, first_data_line)
            : extents_between_blanks(reading, raw_lines);
    if (extents.empty()) {
        return {};
    }
    const auto places = places_of_names(heading, extents, starts_of_names(reading, extents));
    NamesOverColumns cut;
    cut.stand_flush = stand_flush(places, extents);
    for (const HeadingWord& place : places) {
        cut.names.push_back(heading.substr(place.begin, place.end - place.begin));
    }
    return cut;
}

} // namespace textio::advice
