#include "advice/names_over_columns.hpp"

#include "advice/heading.hpp"
#include "advice/lines.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// Where the values of a column begin and end, in code units from the start of a line.
struct Extent {
    std::size_t begin = SIZE_MAX;
    std::size_t end = 0;
};

void widen(Extent& extent, std::size_t begin, std::size_t size) {
    extent.begin = std::min(extent.begin, begin);
    extent.end = std::max(extent.end, begin + size);
}

constexpr std::size_t looked_at = 40; ///< lines below a heading

std::vector<Extent> extents_at_positions(const Positions& positions, const FieldArray& raw_lines,
                                         std::size_t first_line) {
    std::vector<Extent> extents(positions.starts.size());
    const std::size_t end = std::min(first_line + looked_at, raw_lines.line_count());
    for (std::size_t line = first_line; line < end; ++line) {
        const std::u16string_view text = text_of(raw_lines, line);
        for (std::size_t column = 0; column < extents.size(); ++column) {
            const std::u16string_view cell = trimmed(cell_at(text, positions, column));
            if (!cell.empty()) {
                widen(extents[column], static_cast<std::size_t>(cell.data() - text.data()),
                      cell.size());
            }
        }
    }
    return extents;
}

/// Of a table that is cut at blanks; empty if its columns do not stand apart.
std::vector<Extent> extents_between_blanks(const Reading& reading, const FieldArray& raw_lines) {
    const FieldArray& sample = *reading.strategy->field_array();
    std::vector<Extent> extents(reading.columns);
    const std::size_t end = std::min(reading.run.first_line + looked_at,
                                     std::min(reading.run.last_line + 1, sample.line_count()));
    for (std::size_t line = reading.run.first_line; line < end; ++line) {
        const auto fields = sample.line(line);
        if (fields.size() != reading.columns) {
            continue;
        }
        const char16_t* const begin =
            text_of(raw_lines, line_of(raw_lines, fields.front().data)).data();
        for (std::size_t column = 0; column < fields.size(); ++column) {
            widen(extents[column], static_cast<std::size_t>(fields[column].data - begin),
                  fields[column].size);
        }
    }
    const auto overlap = [](const Extent& left, const Extent& right) {
        return left.end > right.begin;
    };
    const bool stand_apart =
        std::adjacent_find(extents.begin(), extents.end(), overlap) == extents.end();
    return stand_apart ? extents : std::vector<Extent>();
}

/// Where each column but the first begins for a name. Numbers stand at the right of theirs, so a
/// longer name over them begins where the column before ends; other names begin with the values.
std::vector<std::size_t> starts_of_names(const Reading& reading,
                                         const std::vector<Extent>& extents) {
    std::vector<std::size_t> starts;
    for (std::size_t column = 1; column < extents.size(); ++column) {
        const bool is_typed =
            column < reading.figures.columns.size() && reading.figures.columns[column].is_typed();
        const std::size_t start =
            reading.is_at_positions() ? reading.positions.starts[column] : extents[column].begin;
        const std::size_t end_before = extents[column - 1].end;
        starts.push_back(is_typed && end_before != 0 ? std::min(start, end_before) : start);
    }
    return starts;
}

bool is_flush(const HeadingWord& word, const Extent& extent) {
    return word.begin == extent.begin || word.end == extent.end;
}

/// A word belongs to the column in which it stands flush, or else to the one that its middle is
/// over.
std::vector<HeadingWord> places_of_names(std::u16string_view heading,
                                         const std::vector<Extent>& extents,
                                         const std::vector<std::size_t>& starts) {
    std::vector<HeadingWord> places(extents.size());
    for (const HeadingWord& word : heading_words(heading, 1)) {
        const auto flush = std::find_if(extents.begin(), extents.end(), [&](const Extent& extent) {
            return is_flush(word, extent);
        });
        const auto behind =
            std::upper_bound(starts.begin(), starts.end(), (word.begin + word.end) / 2);
        const auto column =
            flush != extents.end() ? flush - extents.begin() : behind - starts.begin();
        HeadingWord& place = places[static_cast<std::size_t>(column)];
        place = {place.end == 0 ? word.begin : place.begin, word.end};
    }
    return places;
}

} // namespace

NamesOverColumns cut_heading(const Reading& reading, const FieldArray& raw_lines,
                             std::size_t first_data_line, std::u16string_view heading) {
    NamesOverColumns cut;
    const std::vector<Extent> extents =
        reading.is_at_positions()
            ? extents_at_positions(reading.positions, raw_lines, first_data_line)
            : extents_between_blanks(reading, raw_lines);
    if (extents.empty()) {
        return cut;
    }
    std::size_t named = 0;
    std::size_t flush = 0;
    const auto places = places_of_names(heading, extents, starts_of_names(reading, extents));
    for (std::size_t column = 0; column < places.size(); ++column) {
        const HeadingWord& place = places[column];
        cut.names.push_back(heading.substr(place.begin, place.end - place.begin));
        named += cut.names.back().empty() ? 0U : 1U;
        flush += !cut.names.back().empty() && is_flush(place, extents[column]) ? 1U : 0U;
    }
    cut.stand_flush = named > 1 && named * 5 >= places.size() * 3 && flush * 4 >= named * 3;
    return cut;
}

} // namespace textio::advice
