#include "textio/statistics.hpp"

#include <algorithm>

namespace textio::detection {

std::size_t get_h_min(const std::vector<std::size_t>& counts) {
    const auto first_other =
        std::find_if(counts.begin(), counts.end(), [](std::size_t count) { return count != 1; });
    return static_cast<std::size_t>(first_other - counts.begin());
}

std::size_t get_modified_median(const std::vector<std::size_t>& counts, std::size_t h_min) {
    const auto header = static_cast<std::ptrdiff_t>(std::min(h_min, counts.size()));
    return modified_median(counts.begin() + header, counts.end());
}

std::size_t modified_median(std::vector<std::size_t>::const_iterator first,
                            std::vector<std::size_t>::const_iterator last) {
    // In fewer lines, a few wide ones may be all there is of a table.
    constexpr std::size_t enough_lines = 11;

    std::vector<std::size_t> wide;
    wide.reserve(static_cast<std::size_t>(last - first));
    std::size_t non_empty = 0;
    for (; first != last; ++first) {
        if (*first != 0) {
            ++non_empty;
        }
        if (*first > 1) {
            wide.push_back(*first);
        }
    }
    if (wide.empty() || (non_empty >= enough_lines && wide.size() < non_empty / 3)) {
        return 1;
    }
    const auto lower_middle = wide.begin() + static_cast<std::ptrdiff_t>((wide.size() - 1) / 2);
    std::nth_element(wide.begin(), lower_middle, wide.end());
    return *lower_middle;
}

std::vector<std::size_t> absolute_differences(const std::vector<std::size_t>& counts,
                                              std::size_t median) {
    // A ragged tail, such as a footnote, is no sign of an irregular table.
    const auto tail = std::find(counts.rbegin(), counts.rend(), median).base();

    std::vector<std::size_t> diffs;
    diffs.reserve(static_cast<std::size_t>(tail - counts.begin()));
    for (auto count = counts.begin(); count != tail; ++count) {
        if (*count != 0) {
            diffs.push_back(std::max(*count, median) - std::min(*count, median));
        }
    }
    return diffs;
}

} // namespace textio::detection
