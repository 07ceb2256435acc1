#include "advice/regions.hpp"

#include "advice/lines.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <utility>

namespace textio::advice {

namespace {

constexpr std::size_t most_tables = 6;
constexpr std::size_t most_rulers = 3;
constexpr std::size_t least_lines = 3; ///< of a block, or of a run of lines of one length

class RegionSearch {
public:
    explicit RegionSearch(const FieldArray& lines) : lines_(lines), end_(lines.line_count()) {}

    Regions run() {
        add_beginnings();
        add_block_and_settled_run();
        return std::move(found_);
    }

private:
    void add(Region region) {
        auto& tables = found_.tables;
        if (tables.size() < most_tables &&
            std::find(tables.begin(), tables.end(), region) == tables.end()) {
            tables.push_back(region);
        }
    }

    /// The first filled line, the second, and what follows a ruler.
    void add_beginnings() {
        std::size_t filled = 0;
        std::size_t ruler = SIZE_MAX;
        for_each_filled_line(lines_, 0, end_, [&](std::size_t line, std::u16string_view text) {
            if (filled++ < 2) {
                add({line, end_});
            }
            if (ruler != SIZE_MAX) {
                keep_ruler({ruler, line});
            }
            ruler = says_nothing(text) ? line : SIZE_MAX;
        });
        for (const Region& found : found_.rulers) {
            add({found.end, end_});
        }
    }

    /// The first rulers, and the last: a description may hold many before the table begins.
    void keep_ruler(Region ruler) {
        if (found_.rulers.size() == most_rulers) {
            found_.rulers.pop_back();
        }
        found_.rulers.push_back(ruler);
    }

    void add_block_and_settled_run() {
        Region run;
        Region block;
        Region settled;
        Region largest;
        std::size_t length = 0; // of the line above
        for_each_filled_line(lines_, 0, end_, [&](std::size_t line, std::u16string_view text) {
            run = extended(text.size() == length ? run : Region(), line);
            block = extended(block, line);
            settled = larger(settled, run);
            largest = larger(largest, block);
            length = text.size();
        });
        if (is_long(settled)) {
            add({settled.first, end_});
        }
        if (is_long(largest)) {
            add(largest);
            add({largest.first + 1, largest.end});
            add({largest.first + 1, end_});
        }
    }

    /// A region and the line right behind it; or else that line alone.
    static Region extended(Region region, std::size_t line) {
        return {region.end == line ? region.first : line, line + 1};
    }

    /// The first one of two as large.
    static Region larger(Region one, Region other) {
        return size_of(other) > size_of(one) ? other : one;
    }

    static bool is_long(Region region) { return size_of(region) >= least_lines; }

    static std::size_t size_of(Region region) { return region.end - region.first; }

    const FieldArray& lines_;
    std::size_t end_;
    Regions found_;
};

} // namespace

Regions find_regions(const FieldArray& lines) {
    return RegionSearch(lines).run();
}

} // namespace textio::advice
