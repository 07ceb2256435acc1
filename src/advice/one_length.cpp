#include "advice/one_length.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace textio::advice {

namespace {

constexpr std::size_t least_records = 3;
constexpr std::size_t least_length = 20;

/// The length that more lines have than any other, if half of them have it.
std::size_t commonest_length(const FieldArray& lines) {
    MajorityVote<std::size_t> vote;
    for (const Field& line : lines.fields) {
        vote.add(line.size);
    }
    return vote.value();
}

enum class UnitKind : std::uint8_t { blank, digit, other };

UnitKind kind_of(char16_t unit) {
    if (unit == u' ') {
        return UnitKind::blank;
    }
    return ascii::is_digit(unit) || unit == u'.' ? UnitKind::digit : UnitKind::other;
}

/// Counts each place of a line where something else begins than stood before.
void count_changes(std::u16string_view line, std::vector<std::size_t>& changes) {
    UnitKind last = UnitKind::blank;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const UnitKind kind = kind_of(line[at]);
        changes[at] += one_if(kind != UnitKind::blank && kind != last);
        last = kind;
    }
}

/// Where on nearly all lines something else begins than stood before.
std::vector<std::size_t> starts_where_units_change(const FieldArray& lines, std::size_t length) {
    constexpr std::size_t most_lines = 100;
    std::vector<std::size_t> changes(length);
    const std::size_t step = lines.fields.size() / (most_lines + 1) + 1;
    std::size_t looked_at = 0;
    for (std::size_t index = 0; index < lines.fields.size(); index += step) {
        count_changes(lines.fields[index].view().substr(0, length), changes);
        ++looked_at;
    }
    std::vector<std::size_t> starts{0};
    for (std::size_t at = 1; at < length; ++at) {
        if (changes[at] * 20 >= looked_at * 19) {
            starts.push_back(at);
        }
    }
    return starts;
}

template <class Property>
std::size_t count_lines(const FieldArray& lines, Property property) {
    return static_cast<std::size_t>(
        std::count_if(lines.fields.begin(), lines.fields.end(),
                      [&](const Field& line) { return property(line.view()); }));
}

bool has_blank(std::u16string_view line) {
    return holds(line, u' ');
}

Positions positions_of_records(const FieldArray& lines, std::vector<std::size_t> starts,
                               std::size_t of_one_length) {
    Positions found;
    found.starts = std::move(starts);
    found.last_line = lines.line_count() - 1;
    found.kept = of_one_length;
    found.rows = lines.fields.size();
    found.all = lines.fields.size();
    found.is_padded = true;
    found.has_padding = true;
    found.has_no_columns = true;
    return found;
}

} // namespace

std::optional<Positions> find_records_of_one_length(const FieldArray& lines) {
    const std::size_t records = lines.fields.size();
    const std::size_t length = records < least_records ? 0 : commonest_length(lines);
    if (length < least_length) {
        return std::nullopt;
    }
    const std::size_t same =
        count_lines(lines, [length](std::u16string_view line) { return line.size() == length; });
    if (same * 4 < records * 3 || count_lines(lines, has_digit) * 10 < records * 7) {
        return std::nullopt;
    }
    auto starts = starts_where_units_change(lines, length);
    if (starts.size() < 3 && count_lines(lines, has_blank) * 2 < records) {
        return std::nullopt;
    }
    return positions_of_records(lines, std::move(starts), same);
}

} // namespace textio::advice
