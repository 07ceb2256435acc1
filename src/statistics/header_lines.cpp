// Where the header ends. Lines of a header seldom have the typical number of fields, lines of data
// nearly always do. So the distances from the typical count, added up from the top, climb through
// the header and stay level behind it, and the square of that sum, divided by the number of lines
// so far, climbs and then sinks again as regular lines dilute it. The end of the header is where
// this curve bends down most sharply. The square makes the climb of a real header stand out against
// the odd irregular line of the data.
#include "textio/statistics.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
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
        regular -= diffs[end] == 0 ? 1 : 0;
    }
    return end;
}

/// The position behind the sharpest downward bend of the curve over two or more `diffs`. The last
/// point is not judged: it serves as the neighbour of the one before it. The first point serves as
/// the neighbour that it lacks itself.
std::size_t behind_sharpest_bend(std::span<const std::size_t> diffs, bool space_separated) {
    // Cut at blanks, lines of prose differ widely from lines of data. That they differ counts; how
    // far does not.
    const std::size_t limit = space_separated ? 2 : SIZE_MAX;

    auto sum = static_cast<double>(diffs.front());
    double before = sum * sum;
    double here = before;
    double sharpest = -std::numeric_limits<double>::infinity();
    std::size_t behind = 0;
    for (std::size_t i = 1; i < diffs.size(); ++i) {
        sum += static_cast<double>(std::min(diffs[i], limit));
        const double ahead = sum * (sum / static_cast<double>(i + 1));
        // As `filter_vector` adds: the order decides the last digit, and with it which of two bends
        // wins.
        const double bend = (2.0 * here - before) - ahead;
        if (bend > sharpest) {
            sharpest = bend;
            behind = i;
        }
        before = here;
        here = ahead;
    }
    return behind;
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
    const std::size_t bend_end =
        behind_sharpest_bend(std::span(diffs).first(irregular_end + 1), space_separated);
    const std::size_t header_lines = back_over_regular_lines(diffs, std::max(bend_end, h_min));
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
    std::vector<double> filtered(values.size());
    filtered[0] = (left + centre) * values[0] + right * values[1];
    for (std::size_t i = 1; i < last; ++i) {
        // The order of the additions decides the last digit, and with it which of two bends wins.
        filtered[i] = (centre * values[i] + left * values[i - 1]) + right * values[i + 1];
    }
    filtered[last] = (centre + right) * values[last] + left * values[last - 1];
    return filtered;
}
