#include "advice/regular_run.hpp"

#include "advice/weights.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace textio::advice {

namespace {

/// The widths that are common enough to be a table's: each that more than one row in nine has is
/// among them.
class CommonWidths {
public:
    void add(std::size_t width) {
        Counter* free = nullptr;
        for (Counter& counter : counters_) {
            if (counter.count != 0 && counter.width == width) {
                ++counter.count;
                return;
            }
            free = counter.count == 0 ? &counter : free;
        }
        if (free != nullptr) {
            *free = {width, 1};
            return;
        }
        for (Counter& counter : counters_) {
            --counter.count;
        }
    }

    struct Counter {
        std::size_t width = 0;
        std::size_t count = 0;
    };

    [[nodiscard]] const std::array<Counter, 8>& counters() const { return counters_; }

private:
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
        sum_ += keeps ? 1 : lacks_last ? 0 : -2;
        ++now_.rows;
        now_.short_rows += lacks_last ? 1U : 0U;
        if (keeps) {
            ++now_.kept;
            now_.last_line = line;
            if (sum_ > best_sum_) {
                best_sum_ = sum_;
                best_ = now_;
            }
        }
    }

    [[nodiscard]] std::int64_t sum() const { return best_sum_; }
    [[nodiscard]] const RegularRun& best() const { return best_; }

private:
    /// Begins a run with a row that keeps the width, and with the rows right above that lack their
    /// last field alone; gives whether there is such a row.
    bool begin(std::size_t line, bool keeps, bool lacks_last) {
        if (!keeps) {
            short_start_ = short_rows_ == 0 ? line : short_start_;
            short_rows_ = lacks_last ? short_rows_ + 1 : 0;
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

    std::size_t width_;
    bool last_is_optional_;
    std::size_t short_start_ = 0; ///< line of the first of `short_rows_`
    std::size_t short_rows_ = 0;  ///< rows above that lack their last field, while no run is on
    std::int64_t sum_ = 0;
    std::int64_t best_sum_ = 0;
    RegularRun now_;
    RegularRun best_;
};

template <class Visit>
void for_each_row(const FieldArray& sample, Visit visit) {
    std::size_t begin = 0;
    for (std::size_t line = 0; line < sample.line_ends.size(); ++line) {
        const std::size_t end = sample.line_ends[line];
        if (end != begin) {
            visit(line, end - begin);
        }
        begin = end;
    }
}

} // namespace

double RegularRun::consistency() const noexcept {
    const double weighed =
        static_cast<double>(rows) + weights::behind_run * static_cast<double>(behind);
    const double fitting =
        static_cast<double>(kept) +
        (is_padded ? weights::announced_row : weights::short_row) * static_cast<double>(short_rows);
    return rows == 0 ? 0 : fitting / weighed;
}

double RegularRun::coverage() const noexcept {
    return all == 0 ? 0 : static_cast<double>(kept + short_rows) / static_cast<double>(all);
}

RegularRun find_regular_run(const FieldArray& sample, bool last_is_optional) {
    CommonWidths widths;
    std::size_t rows = 0;
    for_each_row(sample, [&](std::size_t, std::size_t fields) {
        ++rows;
        widths.add(fields);
    });
    RegularRun best;
    std::int64_t best_sum = 0;
    for (const auto& counter : widths.counters()) {
        if (counter.count == 0 || counter.width < 2) {
            continue;
        }
        RunSearch search(counter.width, last_is_optional);
        for_each_row(sample,
                     [&](std::size_t line, std::size_t fields) { search.add(line, fields); });
        if (search.sum() > best_sum) {
            best_sum = search.sum();
            best = search.best();
        }
    }
    best.all = rows;
    if (best.width != 0) {
        for_each_row(sample, [&](std::size_t line, std::size_t) {
            best.behind += line > best.last_line ? 1U : 0U;
        });
    }
    return best;
}

RegularRun find_headed_run(const FieldArray& sample) {
    constexpr std::size_t least_width = 3;
    constexpr std::size_t most_missing = 3; ///< two of so many fields
    RegularRun run;
    std::size_t all_fields = 0;
    bool is_wider = false;
    for_each_row(sample, [&](std::size_t line, std::size_t fields) {
        if (run.rows == 0) {
            run.width = fields;
            run.first_line = line;
        }
        ++run.rows;
        run.last_line = line;
        is_wider = is_wider || fields > run.width;
        all_fields += fields;
        ++(fields == run.width ? run.kept : run.short_rows);
    });
    const bool is_hollow = run.rows == 0 || all_fields / run.rows < run.width / most_missing;
    const bool is_mostly_whole = run.kept * 2 > run.rows; // what is shorter is a footer then
    if (run.width < least_width || is_wider || is_hollow || is_mostly_whole) {
        return {};
    }
    run.all = run.rows;
    run.is_padded = true;
    return run;
}

RegularRun find_ragged_run(const FieldArray& sample) {
    RegularRun run;
    std::vector<std::size_t> counts;
    for_each_row(sample, [&](std::size_t line, std::size_t fields) {
        run.first_line = run.rows == 0 ? line : run.first_line;
        run.last_line = line;
        ++run.rows;
        counts.resize(std::max(counts.size(), fields + 1));
        ++counts[fields];
    });
    run.all = run.rows;
    for_each_row(sample, [&](std::size_t, std::size_t fields) {
        if (counts[fields] > run.kept) {
            run.kept = counts[fields];
            run.width = fields;
        }
    });
    return run;
}

RegularRun find_last_run(const FieldArray& sample) {
    RegularRun run;
    std::size_t all = 0;
    for_each_row(sample, [&](std::size_t line, std::size_t fields) {
        ++all;
        if (fields != run.width) {
            run = RegularRun{};
            run.width = fields;
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
