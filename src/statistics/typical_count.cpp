#include "textio/statistics.hpp"

#include <algorithm>
#include <array>

namespace textio::detection {

namespace {

using Counts = std::vector<std::size_t>::const_iterator;

/// How often each count stands in a list.
class Tally {
public:
    Tally(Counts first, Counts last) {
        for (; first != last; ++first) {
            if (*first < small_.size()) {
                ++small_[*first];
            } else {
                large_.push_back(*first);
            }
        }
    }

    [[nodiscard]] std::size_t zeros() const noexcept { return small_[0]; }
    [[nodiscard]] std::size_t ones() const noexcept { return small_[1]; }

    /// Of the counts of 2 or more, the one with `rank` others before it in ascending order.
    [[nodiscard]] std::size_t wide_count(std::size_t rank) {
        for (std::size_t count = 2; count < small_.size(); ++count) {
            if (rank < small_[count]) {
                return count;
            }
            rank -= small_[count];
        }
        const auto wanted = large_.begin() + static_cast<std::ptrdiff_t>(rank);
        std::nth_element(large_.begin(), wanted, large_.end());
        return *wanted;
    }

private:
    std::array<std::size_t, 64> small_{}; // few tables are wider
    std::vector<std::size_t> large_;
};

} // namespace

std::size_t get_h_min(const std::vector<std::size_t>& counts) {
    const auto first_other =
        std::find_if(counts.begin(), counts.end(), [](std::size_t count) { return count != 1; });
    return static_cast<std::size_t>(first_other - counts.begin());
}

std::size_t get_modified_median(const std::vector<std::size_t>& counts, std::size_t h_min) {
    const auto header = static_cast<std::ptrdiff_t>(std::min(h_min, counts.size()));
    return modified_median(counts.begin() + header, counts.end());
}

std::size_t modified_median(Counts first, Counts last) {
    // In fewer lines, a few wide ones may be all there is of a table.
    constexpr std::size_t enough_lines = 11;

    if (first == last) {
        return 1;
    }
    Tally tally(first, last);
    const std::size_t non_empty = static_cast<std::size_t>(last - first) - tally.zeros();
    const std::size_t wide = non_empty - tally.ones();
    if (wide == 0 || (non_empty >= enough_lines && wide < non_empty / 3)) {
        return 1;
    }
    return tally.wide_count((wide - 1) / 2);
}

std::vector<std::size_t> absolute_differences(const std::vector<std::size_t>& counts,
                                              std::size_t median) {
    // A ragged tail, such as a footnote, is no sign of an irregular table.
    const auto tail = std::find(counts.rbegin(), counts.rend(), median).base();

    std::vector<std::size_t> diffs(static_cast<std::size_t>(tail - counts.begin()));
    std::size_t found = 0;
    for (auto count = counts.begin(); count != tail; ++count) {
        diffs[found] = *count > median ? *count - median : median - *count;
        found += *count == 0 ? 0 : 1;
    }
    diffs.resize(found);
    return diffs;
}

} // namespace textio::detection
