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

    /// The first line, the second, and what follows a ruler.
    void add_beginnings() {
        std::size_t filled = 0;
        std::size_t ruler = SIZE_MAX;
        for (std::size_t line = 0; line < end_; ++line) {
            const auto text = text_of(lines_, line);
            if (text.empty()) {
                continue;
            }
            if (filled < 2) {
                add({line, end_});
            }
            if (ruler != SIZE_MAX) {
                keep_ruler({ruler, line});
            }
            ruler = says_nothing(text) ? line : SIZE_MAX;
            ++filled;
        }
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
        Region settled;
        Region block;
        Region largest;
        for (std::size_t line = 0; line < end_; ++line) {
            const auto text = text_of(lines_, line);
            const std::size_t end = text.empty() ? line : line + 1;
            const bool is_as_long =
                line > 0 && line == run.end && text.size() == text_of(lines_, line - 1).size();
            run = {is_as_long ? run.first : line, end};
            block = {line > 0 && line == block.end ? block.first : line, end};
            settled = size_of(run) > size_of(settled) ? run : settled;
            largest = size_of(block) > size_of(largest) ? block : largest;
        }
        if (size_of(settled) >= least_lines) {
            add({settled.first, end_});
        }
        if (size_of(largest) >= least_lines) {
            add(largest);
            add({largest.first + 1, largest.end});
            add({largest.first + 1, end_});
        }
    }

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
