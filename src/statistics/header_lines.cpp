// Where the header ends. Lines of a header seldom have the typical number of fields, lines of data
// nearly always do. So the distances from the typical count, added up from the top, climb through
// the header and stay level behind it, and the square of that sum, divided by the number of lines
// so far, climbs and then sinks again as regular lines dilute it. The end of the header is where
// this curve bends down most sharply. The square makes the climb of a real header stand out against
// the odd irregular line of the data.
#include "textio/statistics.hpp"

#include <algorithm>
#include <span>

namespace textio::detection {
namespace {

/// `end` moved up over the regular lines before it.
std::size_t back_over_regular_lines(const std::vector<std::size_t>& diffs, std::size_t end) {
    while (end > 0 && diffs[end - 1] == 0) {
        --end;
    }
    return end;
}

/// `end` moved up until at most half of the lines before it are regular: a few irregular lines far
/// down belong to the data.
std::size_t back_to_mostly_irregular_lines(const std::vector<std::size_t>& diffs, std::size_t end) {
    auto regular = static_cast<std::size_t>(
        std::count(diffs.begin(), diffs.begin() + static_cast<std::ptrdiff_t>(end), 0U));
    while (regular > end / 2) {
        --end;
        if (diffs[end] == 0) {
            --regular;
        }
    }
    return end;
}

std::vector<double> accumulated_distances(std::span<const std::size_t> diffs,
                                          bool space_separated) {
    // Prose falls into many fields at its blanks: that it differs counts there, not how far.
    constexpr std::size_t space_separated_limit = 2;

    std::vector<double> curve;
    curve.reserve(diffs.size());
    double sum = 0;
    for (std::size_t i = 0; i < diffs.size(); ++i) {
        const bool limited = space_separated && i > 0;
        sum += static_cast<double>(limited ? std::min(diffs[i], space_separated_limit) : diffs[i]);
        curve.push_back(sum * (sum / static_cast<double>(i + 1)));
    }
    return curve;
}

/// The position behind the sharpest downward bend. The last of the two or more points of `curve`
/// only gives the bend before it.
std::size_t behind_sharpest_bend(const std::vector<double>& curve) {
    const std::vector<double> bend = filter_vector(curve, -1.0, 2.0, -1.0);
    const auto sharpest = std::max_element(bend.begin(), bend.end() - 1);
    return static_cast<std::size_t>(sharpest - bend.begin()) + 1;
}

} // namespace

std::size_t get_header_lines(const std::vector<std::size_t>& diffs, std::size_t h_min,
                             bool space_separated) {
    const std::size_t lines = diffs.size();
    if (lines == 0) {
        return h_min;
    }
    if (lines == 2) {
        return diffs[0] == diffs[1] ? 0 : 1;
    }
    // The last line is a typical one by definition.
    const std::size_t irregular_end =
        back_to_mostly_irregular_lines(diffs, back_over_regular_lines(diffs, lines - 1));
    if (irregular_end <= h_min) {
        return h_min;
    }
    const std::vector<double> curve =
        accumulated_distances(std::span(diffs).first(irregular_end + 1), space_separated);
    const std::size_t header_lines =
        back_over_regular_lines(diffs, std::max(behind_sharpest_bend(curve), h_min));
    // What would leave less than a third of the lines for data is no header.
    return 3 * header_lines > 2 * lines ? h_min : header_lines;
}

std::size_t adjust_header(std::size_t header_lines, const std::vector<std::size_t>& empty_lines,
                          const std::vector<std::size_t>& counts) {
    for (const std::size_t empty_line : empty_lines) {
        if (empty_line <= header_lines) {
            ++header_lines;
        }
    }
    while (header_lines < counts.size() && counts[header_lines] <= 1) {
        ++header_lines;
    }
    return header_lines;
}

} // namespace textio::detection

std::vector<double> filter_vector(const std::vector<double>& values, double left, double centre,
                                  double right) {
    if (values.size() < 2) {
        return values;
    }
    const std::size_t last = values.size() - 1;
    std::vector<double> filtered;
    filtered.reserve(values.size());
    filtered.push_back((left + centre) * values[0] + right * values[1]);
    for (std::size_t i = 1; i < last; ++i) {
        // The order of the additions decides the last digit, and with it which of two bends wins.
        filtered.push_back((centre * values[i] + left * values[i - 1]) + right * values[i + 1]);
    }
    filtered.push_back((centre + right) * values[last] + left * values[last - 1]);
    return filtered;
}
