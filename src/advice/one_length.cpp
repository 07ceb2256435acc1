#include "advice/one_length.hpp"

#include "ascii.hpp"

#include <algorithm>
#include <vector>

namespace textio::advice {

namespace {

constexpr std::size_t least_records = 3;
constexpr std::size_t least_length = 20;

/// The length that more lines have than any other, if half of them have it.
std::size_t commonest_length(const FieldArray& lines) {
    std::size_t length = 0;
    std::size_t votes = 0;
    for (const Field& line : lines.fields) {
        length = votes == 0 ? line.size : length;
        votes = line.size == length ? votes + 1 : votes - 1;
    }
    return length;
}

enum class UnitKind : std::uint8_t { blank, digit, other };

UnitKind kind_of(char16_t unit) {
    if (unit == u' ') {
        return UnitKind::blank;
    }
    return ascii::is_digit(unit) || unit == u'.' ? UnitKind::digit : UnitKind::other;
}

/// Where on nearly all lines something else begins than stood before.
std::vector<std::size_t> starts_where_units_change(const FieldArray& lines, std::size_t length) {
    constexpr std::size_t most_lines = 100;
    std::vector<std::size_t> changes(length);
    const std::size_t step = lines.fields.size() / (most_lines + 1) + 1;
    std::size_t looked_at = 0;
    for (std::size_t index = 0; index < lines.fields.size(); index += step) {
        const Field& line = lines.fields[index];
        ++looked_at;
        const std::size_t end = std::min(length, line.size);
        for (std::size_t at = 1; at < end; ++at) {
            const UnitKind kind = kind_of(line.data[at]);
            changes[at] += kind != UnitKind::blank && kind != kind_of(line.data[at - 1]) ? 1U : 0U;
        }
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

} // namespace

std::optional<Positions> find_records_of_one_length(const FieldArray& lines) {
    const std::size_t records = lines.fields.size();
    const std::size_t length = records < least_records ? 0 : commonest_length(lines);
    if (length < least_length) {
        return std::nullopt;
    }
    const std::size_t same =
        count_lines(lines, [&](std::u16string_view line) { return line.size() == length; });
    const std::size_t with_digit = count_lines(lines, [](std::u16string_view line) {
        return std::any_of(line.begin(), line.end(), ascii::is_digit);
    });
    if (same * 4 < records * 3 || with_digit * 10 < records * 7) {
        return std::nullopt;
    }
    Positions found;
    found.starts = starts_where_units_change(lines, length);
    const std::size_t with_blank = count_lines(lines, [](std::u16string_view line) {
        return line.find(u' ') != std::u16string_view::npos;
    });
    if (with_blank * 2 < records && found.starts.size() < 3) {
        return std::nullopt;
    }
    found.last_line = lines.line_count() - 1;
    found.kept = same;
    found.rows = records;
    found.all = records;
    found.is_padded = true;
    found.has_padding = true;
    found.has_no_columns = true;
    return found;
}

} // namespace textio::advice
