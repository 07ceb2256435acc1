// Whole detection runs over texts of each layout, all rows sampled, set against the reads that they
// are made of: what is above 1 is valuation, classification, rules and the making of strategies.

#include "heap_use.hpp"
#include "measuring.hpp"
#include "own_reads.hpp"
#include "textio/textio.hpp"
#include "texts.hpp"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace bench;
using textio::Field;
using textio::GenericStrategy;
using textio::enums::StrategyMode;

struct Layout {
    std::string name;
    std::u16string (*make_rows)(std::size_t);
    StrategyMode answer;           ///< a run that finds something else measures something else
    std::u16string delimiter = {}; ///< of a delimited answer
    DetectionOptions options = {};
};

DetectionOptions with_decimal_comma() {
    DetectionOptions options;
    options.read.excluded_delimiter.assign(1, u',');
    options.type.decimal_separator = u',';
    return options;
}

const std::vector<Layout>& layouts() {
    static const std::vector<Layout> all{
        {"comma", comma_rows, StrategyMode::delimited, u","},
        {"semicolon, decimal comma", semicolon_rows, StrategyMode::delimited, u";",
         with_decimal_comma()},
        {"tab", tab_rows, StrategyMode::delimited, u"\t"},
        {"bar", bar_rows, StrategyMode::delimited, u"|"},
        {"space-aligned", space_aligned_rows, StrategyMode::space_aligned},
        {"fixed width", fixed_width_rows, StrategyMode::fixed_width},
        {"quoted", quoted_rows, StrategyMode::delimited, u","},
        {"prose", prose_rows, StrategyMode::line_reader},
        {"a date per line", date_rows, StrategyMode::delimited, u","},
    };
    return all;
}

std::shared_ptr<GenericStrategy> pick(const Field& text, const DetectionOptions& options) {
    textio::detection::StrategySelector selector(options.read, options.type);
    return selector.pick_strategy(text, SIZE_MAX);
}

bool is_answer(const GenericStrategy& strategy, const Layout& layout) {
    return strategy.mode() == layout.answer &&
           (layout.answer != StrategyMode::delimited ||
            strategy.options().delimiters == std::vector{layout.delimiter});
}

/// The answer's sample is destroyed behind the clock, as with a single read.
double seconds_of_pick(const Field& text, const DetectionOptions& options) {
    std::shared_ptr<GenericStrategy> answer;
    return seconds_of([&] { answer = pick(text, options); });
}

void measure_pick(benchmark::State& state, const Layout& layout, std::size_t rows) {
    constexpr double most_reads = 1.25;
    const std::size_t count = std::clamp<std::size_t>(10'000 / rows, 1, 40);
    const auto texts = parts_of_a_text(layout.make_rows, rows, count);
    std::vector<OwnReads> own;
    for (const std::u16string& text : texts) {
        if (!is_answer(*pick(Field(text), layout.options), layout)) {
            state.SkipWithError("the layout is not recognised");
            return;
        }
        own.push_back(own_reads(Field(text), layout.options));
    }
    std::vector<CopyTime> copies(texts.begin(), texts.end());
    std::vector<BestTime> whole(count);
    std::vector<BestTime> reads(count);
    for ([[maybe_unused]] auto _ : state) {
        double seconds = 0;
        for (std::size_t i = 0; i < count; ++i) {
            copies[i].measure();
            reads[i].add(seconds_of_reads(Field(texts[i]), own[i]));
            whole[i].add(seconds_of_pick(Field(texts[i]), layout.options));
            seconds += whole[i].seconds();
        }
        state.SetIterationTime(seconds);
    }
    report_best_time(state, mean_seconds(whole));
    report(
        state,
        std::string("x memcpy, ").append(std::to_string(own.front().reads.size())).append(" reads"),
        mean_seconds(whole) / mean_seconds(copies));
    const double share = mean_seconds(whole) / mean_seconds(reads);
    if (rows == 10'000) {
        report(state, "x its own reads", share, most_reads);
    } else {
        report(state, "x its own reads", share);
    }
}

/// Small texts of all layouts in turn, as an import dialog and a scan of many files see them.
void measure_small_texts(benchmark::State& state, std::size_t rows, std::size_t most_units) {
    std::vector<std::u16string> texts;
    for (const Layout& layout : layouts()) {
        for (std::u16string& text : parts_of_a_text(layout.make_rows, rows, 10)) {
            text.resize(std::min(text.size(), most_units));
            texts.push_back(std::move(text));
        }
    }
    std::vector<BestTime> times(texts.size());
    std::size_t allocations = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::size_t allocations_before = heap_use().allocations;
        double seconds = 0;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            times[i].add(seconds_of_pick(Field(texts[i]), {}));
            seconds += times[i].seconds();
        }
        allocations = heap_use().allocations - allocations_before;
        state.SetIterationTime(seconds);
    }
    report_best_time(state, mean_seconds(times));
    report(state, "allocations in one detection",
           static_cast<double>(allocations) / static_cast<double>(texts.size()));
}

/// One line of a million units in front of 100,000 short ones, only fixed widths to be tried,
/// against the short lines alone.
void measure_long_line(benchmark::State& state) {
    constexpr std::size_t long_units = 1'000'000;
    constexpr double most_growth = 2;
    DetectionOptions options;
    options.read.layout_hint = textio::parser::layout::fixed_width;
    const std::u16string short_lines = fixed_width_rows(100'000);
    RandomSource random;
    std::u16string units;
    while (units.size() < long_units) {
        units += random.letters(random.between(1, 9)) + u' ';
    }
    units += u'\n' + short_lines;
    BestTime with;
    BestTime without;
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = seconds_of_pick(Field(units), options);
        with.add(seconds);
        without.add(seconds_of_pick(Field(short_lines), options));
        state.SetIterationTime(seconds);
    }
    report_best_time(state, with);
    const auto per_unit = [](const BestTime& time, const std::u16string& text) {
        return time.seconds() / static_cast<double>(text.size());
    };
    report(state, "x the time per unit without it",
           per_unit(with, units) / per_unit(without, short_lines), most_growth);
}

const bool added = [] {
    for (const Layout& layout : layouts()) {
        const std::string name = "detection, " + layout.name;
        for (const std::size_t rows : {250U, 10'000U, 100'000U}) {
            benchmark::RegisterBenchmark((name + ", " + std::to_string(rows) + " rows").c_str(),
                                         measure_pick, layout, rows)
                ->UseManualTime();
        }
        benchmark::RegisterBenchmark(
            (name + ", 10 x 10000 rows").c_str(),
            [&layout](benchmark::State& state) {
                constexpr std::size_t rows = 10'000;
                measure_growth(state, rows, layout.make_rows, [&](const std::u16string& text) {
                    return seconds_of_pick(Field(text), layout.options);
                });
            })
            ->UseManualTime();
    }
    const auto add_small = [](const std::string& what, std::size_t rows, std::size_t most_units) {
        benchmark::RegisterBenchmark(("detection, small: " + what).c_str(), measure_small_texts,
                                     rows, most_units)
            ->UseManualTime();
    };
    add_small("empty", 1, 0);
    add_small("ten units", 1, 10);
    add_small("three lines", 3, SIZE_MAX);
    add_small("250 rows", 250, SIZE_MAX);
    benchmark::RegisterBenchmark("detection, fixed width, a line of a million units",
                                 measure_long_line)
        ->UseManualTime();
    return true;
}();

} // namespace
