#include "advice/regular_run.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace textio::advice {

namespace {

/// The widths that are common enough to be a table's: each that more than one row in nine has is
/// among them.
class CommonWidths {
public:
    void add(std::size_t width) {
        Counter* const known =
            find([width](const Counter& counter) { return counter.counts(width); });
        if (known != nullptr) {
            ++known->count;
        } else if (Counter* const free = find(is_free)) {
            *free = {width, 1};
        } else {
            for (Counter& counter : counters_) {
                --counter.count;
            }
        }
    }

    struct Counter {
        std::size_t width = 0;
        std::size_t count = 0;

        [[nodiscard]] bool counts(std::size_t fields) const {
            return count != 0 && width == fields;
        }
    };

    [[nodiscard]] const std::array<Counter, 8>& counters() const { return counters_; }

private:
    static bool is_free(const Counter& counter) { return counter.count == 0; }

    /// The last counter with a property; null if none has it.
    template <class Property>
    Counter* find(Property property) {
        const auto found = std::find_if(counters_.rbegin(), counters_.rend(), property);
        return found == counters_.rend() ? nullptr : &*found;
    }

    std::array<Counter, 8> counters_{};
};

/// The best run of one width, found while the rows pass by.
class RunSearch {
public:
    RunSearch(std::size_t width, bool last_is_optional)
        : width_(width), last_is_optional_(last_is_optional && width > 2) {}

    void add(std::size_t line, std::size_t fields) {
        const bool keeps = fields == width_;
        const bool lacks_last = last_is_optional_ && fields + 1 == width_;
        if (sum_ <= 0 && !begin(line, keeps, lacks_last)) {
            return;
        }
        ++now_.rows;
        if (keeps) {
            keep(line);
        } else if (lacks_last) {
            ++now_.short_rows;
        } else {
            sum_ -= 2;
        }
    }

    [[nodiscard]] std::int64_t sum() const { return best_sum_; }
    [[nodiscard]] const RegularRun& best() const { return best_; }

private:
    void keep(std::size_t line) {
        ++sum_;
        ++now_.kept;
        now_.last_line = line;
        if (sum_ > best_sum_) {
            best_sum_ = sum_;
            best_ = now_;
        }
    }

    /// Begins a run with a row that keeps the width, and with the rows right above that lack their
    /// last field alone; gives whether there is such a row.
    bool begin(std::size_t line, bool keeps, bool lacks_last) {
        if (!keeps) {
            note_above(line, lacks_last);
            return false;
        }
        sum_ = 0;
        now_ = RegularRun{};
        now_.width = width_;
        now_.first_line = short_rows_ == 0 ? line : short_start_;
        now_.rows = short_rows_;
        now_.short_rows = short_rows_;
        short_rows_ = 0;
        return true;
    }

    /// Takes in a row that begins no run.
    void note_above(std::size_t line, bool lacks_last) {
        if (short_rows_ == 0) {
            short_start_ = line;
        }
        short_rows_ = lacks_last ? short_rows_ + 1 : 0;
    }

    std::size_t width_;
    bool last_is_optional_;
    std::size_t short_start_ = 0; ///< line of the first of `short_rows_`
    std::size_t short_rows_ = 0;  ///< rows above that lack their last field, while no run is on
    std::int64_t sum_ = 0;
    std::int64_t best_sum_ = 0;
    RegularRun now_;
    RegularRun best_;
};

std::size_t rows_behind(const FieldArray& sample, std::size_t line) {
    std::size_t count = 0;
    for_each_row(sample,
                 [&](std::size_t at, std::span<const Field>) { count += one_if(at > line); });
    return count;
}

/// Whether rows have so few fields, on the average, that the first row names no columns of theirs.
bool are_hollow(const RegularRun& run, std::size_t all_fields) {
    constexpr std::size_t most_missing = 3; ///< two of so many fields
    return run.rows == 0 || all_fields / run.rows < run.width / most_missing;
}

} // namespace

double RegularRun::consistency() const noexcept {
    const double weighed =
        static_cast<double>(rows) + weights::behind_run * static_cast<double>(behind);
    const double fitting =
        static_cast<double>(kept) +
        (is_padded ? weights::announced_row : weights::short_row) * static_cast<double>(short_rows);
    return share_of(fitting, weighed);
}

double RegularRun::coverage() const noexcept {
    return share_of(kept + short_rows, all);
}

RegularRun find_regular_run(const FieldArray& sample, bool last_is_optional) {
    CommonWidths widths;
    std::size_t rows = 0;
    for_each_row(sample, [&](std::size_t, std::span<const Field> row) {
        ++rows;
        widths.add(row.size());
    });
    RegularRun best;
    std::int64_t best_sum = 0;
    for (const auto& counter : widths.counters()) {
        if (counter.count == 0 || counter.width < 2) {
            continue;
        }
        RunSearch search(counter.width, last_is_optional);
        for_each_row(sample, [&](std::size_t line, std::span<const Field> row) {
            search.add(line, row.size());
        });
        if (search.sum() > best_sum) {
            best_sum = search.sum();
            best = search.best();
        }
    }
    best.all = rows;
    best.behind = best.width == 0 ? 0 : rows_behind(sample, best.last_line);
    return best;
}

RegularRun find_headed_run(const FieldArray& sample) {
    constexpr std::size_t least_width = 3;
    RegularRun run;
    std::size_t widest = 0;
    for_each_row(sample, [&](std::size_t line, std::span<const Field> row) {
        if (run.rows == 0) {
            run.width = row.size();
            run.first_line = line;
        }
        ++run.rows;
        run.last_line = line;
        widest = std::max(widest, row.size());
        ++(row.size() == run.width ? run.kept : run.short_rows);
    });
    const bool is_mostly_whole = run.kept * 2 > run.rows; // what is shorter is a footer then
    const bool is_wider = widest > run.width;
    if (run.width < least_width || is_wider || is_mostly_whole ||
        are_hollow(run, sample.fields.size())) {
        return {};
    }
    run.all = run.rows;
    run.is_padded = true;
    return run;
}

RegularRun find_ragged_run(const FieldArray& sample) {
    RegularRun run;
    std::vector<std::size_t> counts;
    for_each_row(sample, [&](std::size_t line, std::span<const Field> row) {
        if (run.rows == 0) {
            run.first_line = line;
        }
        run.last_line = line;
        ++run.rows;
        counts.resize(std::max(counts.size(), row.size() + 1));
        ++counts[row.size()];
    });
    run.all = run.rows;
    for_each_row(sample, [&](std::size_t, std::span<const Field> row) {
        if (counts[row.size()] > run.kept) {
            run.kept = counts[row.size()];
            run.width = row.size();
        }
    });
    return run;
}

RegularRun find_last_run(const FieldArray& sample) {
    RegularRun run;
    std::size_t all = 0;
    for_each_row(sample, [&](std::size_t line, std::span<const Field> row) {
        ++all;
        if (row.size() != run.width) {
            run = RegularRun{};
            run.width = row.size();
            run.first_line = line;
        }
        ++run.kept;
        ++run.rows;
        run.last_line = line;
    });
    run.all = all;
    return run;
}

} // namespace textio::advice
