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

std::vector<Extent> extents_of(const Positions& positions, const FieldArray& raw_lines,
                               std::size_t first_line) {
    constexpr std::size_t looked_at = 40;
    std::vector<Extent> extents(positions.starts.size());
    const std::size_t end = std::min(first_line + looked_at, raw_lines.line_count());
    for (std::size_t line = first_line; line < end; ++line) {
        const std::u16string_view text = text_of(raw_lines, line);
        for (std::size_t column = 0; column < extents.size(); ++column) {
            const std::u16string_view cell = trimmed(cell_at(text, positions, column));
            if (!cell.empty()) {
                const auto begin = static_cast<std::size_t>(cell.data() - text.data());
                extents[column].begin = std::min(extents[column].begin, begin);
                extents[column].end = std::max(extents[column].end, begin + cell.size());
            }
        }
    }
    return extents;
}

/// Where each column but the first begins for a name. Numbers stand at the right of theirs, so a
/// longer name over them begins where the column before ends; other names begin with the values.
std::vector<std::size_t> starts_of_names(const Reading& reading,
                                         const std::vector<Extent>& extents) {
    std::vector<std::size_t> starts;
    for (std::size_t column = 1; column < extents.size(); ++column) {
        const bool is_typed =
            column < reading.figures.columns.size() && reading.figures.columns[column].is_typed();
        const std::size_t start = reading.positions.starts[column];
        const std::size_t end_before = extents[column - 1].end;
        starts.push_back(is_typed && end_before != 0 ? std::min(start, end_before) : start);
    }
    return starts;
}

/// Each word belongs to the column that its middle is over.
std::vector<HeadingWord> places_of_names(std::u16string_view heading,
                                         const std::vector<std::size_t>& starts) {
    std::vector<HeadingWord> places(starts.size() + 1);
    for (const HeadingWord& word : heading_words(heading, 1)) {
        const auto behind =
            std::upper_bound(starts.begin(), starts.end(), (word.begin + word.end) / 2);
        HeadingWord& place = places[static_cast<std::size_t>(behind - starts.begin())];
        place = {place.end == 0 ? word.begin : place.begin, word.end};
    }
    return places;
}

} // namespace

NamesOverColumns cut_heading(const Reading& reading, const FieldArray& raw_lines,
                             std::size_t first_data_line, std::u16string_view heading) {
    NamesOverColumns cut;
    const std::vector<Extent> extents = extents_of(reading.positions, raw_lines, first_data_line);
    std::size_t named = 0;
    std::size_t flush = 0;
    const auto places = places_of_names(heading, starts_of_names(reading, extents));
    for (std::size_t column = 0; column < places.size(); ++column) {
        const HeadingWord& place = places[column];
        cut.names.push_back(heading.substr(place.begin, place.end - place.begin));
        const bool is_flush =
            place.begin == extents[column].begin || place.end == extents[column].end;
        named += cut.names.back().empty() ? 0U : 1U;
        flush += !cut.names.back().empty() && is_flush ? 1U : 0U;
    }
    cut.stand_flush = named > 1 && named * 5 >= places.size() * 3 && flush * 4 >= named * 3;
    return cut;
}

} // namespace textio::advice
