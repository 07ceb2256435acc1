// One read of a text under one layout, by the way that every candidate of a detection run takes:
// `read_sample` without the valuation. Making the strategy and destroying the sample is not timed;
// building the reader from the options and growing the sample is.

#include "heap_use.hpp"
#include "measuring.hpp"
#include "parser/read_sample.hpp"
#include "texts.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace bench;
using textio::DelimitedStrategy;
using textio::Field;
using textio::FixedWidthStrategy;
using textio::GenericStrategy;
using textio::LineReaderStrategy;
using textio::SpaceAlignedStrategy;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

using MakeStrategy = std::function<std::shared_ptr<GenericStrategy>()>;

constexpr std::size_t text_units = 100'000;

textio::parser::options options_without_comments() {
    textio::parser::options options;
    options.comment_style.clear();
    return options;
}

MakeStrategy delimited(char16_t delimiter) {
    return [delimiter] {
        return std::make_shared<DelimitedStrategy>(options_without_comments(),
                                                   TypeAnalyzerOptions(), delimiter);
    };
}

std::shared_ptr<GenericStrategy> delimited_with_comments() {
    return std::make_shared<DelimitedStrategy>(textio::parser::options(), TypeAnalyzerOptions(),
                                               u',');
}

std::shared_ptr<GenericStrategy> one_field_per_line() {
    return std::make_shared<LineReaderStrategy>(options_without_comments(), TypeAnalyzerOptions());
}

std::shared_ptr<GenericStrategy> space_aligned() {
    return std::make_shared<SpaceAlignedStrategy>(options_without_comments(),
                                                  TypeAnalyzerOptions());
}

std::shared_ptr<GenericStrategy> fixed_width() {
    constexpr std::size_t width = 8;
    return std::make_shared<FixedWidthStrategy>(options_without_comments(), TypeAnalyzerOptions(),
                                                std::vector<std::size_t>(table_columns, width));
}

/// A read's own figures; what it made is destroyed before the next.
struct ReadFigures {
    double seconds;
    std::size_t allocations;
};

ReadFigures read_once(const Field& text, const MakeStrategy& make_strategy) {
    const std::shared_ptr<GenericStrategy> strategy = make_strategy();
    textio::output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = SIZE_MAX;
    const std::size_t allocations_before = heap_use().allocations;
    const double seconds =
        seconds_of([&] { textio::parser::read_sample(builder, strategy, false); });
    return {seconds, heap_use().allocations - allocations_before};
}

using MakeUnits = std::function<std::u16string(std::size_t)>;

void add_read(const std::string& name, MakeUnits make_text, MakeStrategy make_strategy,
              std::optional<double> most_copies = std::nullopt) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        constexpr std::size_t count = 40;
        const auto texts = parts_of_a_text(make_text, text_units, count);
        std::vector<CopyTime> copies(texts.begin(), texts.end());
        std::vector<BestTime> reads(count);
        for ([[maybe_unused]] auto _ : state) {
            double seconds = 0;
            for (std::size_t i = 0; i < count; ++i) {
                copies[i].measure(); // and so the text is in the cache
                reads[i].add(read_once(Field(texts[i]), make_strategy).seconds);
                seconds += reads[i].seconds();
            }
            state.SetIterationTime(seconds);
        }
        report_best_time(state, mean_seconds(reads));
        const double copies_per_read = mean_seconds(reads) / mean_seconds(copies);
        if (most_copies) {
            report(state, "x memcpy", copies_per_read, *most_copies);
        } else {
            report(state, "x memcpy", copies_per_read);
        }
    })->UseManualTime();
}

using MakeRows = std::function<std::u16string(std::size_t)>;

void add_allocations(const std::string& read, MakeRows make_text, MakeStrategy make_strategy) {
    constexpr double most_allocations = 64;
    for (const std::size_t rows : {1'000U, 10'000U, 100'000U}) {
        const std::string name = read + ", " + std::to_string(rows) + " rows";
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
            const std::u16string text = make_text(rows);
            std::size_t allocations = 0;
            for ([[maybe_unused]] auto _ : state) {
                allocations = read_once(Field(text), make_strategy).allocations;
            }
            report(state, "allocations in one read", static_cast<double>(allocations),
                   most_allocations);
        })->Iterations(1);
    }
}

/// What ten times as many rows cost, and what a read allocates.
void add_growth(const std::string& read, MakeRows make_text, MakeStrategy make_strategy) {
    for (const std::size_t rows : {1'000U, 10'000U}) {
        const std::string name = read + ", 10 x " + std::to_string(rows) + " rows";
        benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
            measure_growth(state, rows, make_text, [&](const std::u16string& text) {
                return read_once(Field(text), make_strategy).seconds;
            });
        })->UseManualTime();
    }
    add_allocations(read, std::move(make_text), std::move(make_strategy));
}

MakeUnits table(const TableShape& shape) {
    return [shape](std::size_t units) { return table_of_units(shape, units); };
}

TableShape with_fields_of(std::size_t units) {
    return {.least_field_units = units, .most_field_units = units};
}

const bool added = [] {
    for (const std::size_t units : {4U, 8U, 16U, 60U}) {
        const std::string fields = "fields of " + std::to_string(units);
        const TableShape shape = with_fields_of(units);
        const auto target = units == 8    ? std::optional(14.0)
                            : units == 60 ? std::optional(7.0)
                                          : std::nullopt;
        add_read("delimited read, " + fields, table(shape), delimited(u','), target);
        add_read("delimited read, delimiter absent, " + fields, table(shape), delimited(u';'), 6.0);
    }
    const TableShape uneven{.least_field_units = 2, .most_field_units = 14};
    const TableShape quoted{.quoted = true};
    const TableShape pairs{.line_ending = u"\r\n"};
    const TableShape aligned{.most_blanks = 8};
    add_read("delimited read, fields of 2 to 14", table(uneven), delimited(u','));
    add_read("delimited read, fields of 8, quoted", table(quoted), delimited(u','));
    add_read("delimited read, fields of 8, CR LF", table(pairs), delimited(u','));
    add_read("delimited read, fields of 8, comments", table({}), delimited_with_comments);
    add_read("line read", table({}), one_field_per_line, 6.0);
    add_read("line read, CR LF", table(pairs), one_field_per_line);
    add_read("fixed-width read, ten columns of 8", fixed_width_table_of_units, fixed_width, 16.0);
    add_read("space-aligned read, columns of 8, 1 to 8 blanks", table(aligned), space_aligned,
             20.0);

    const auto rows_of = [](const TableShape& shape) {
        return [shape](std::size_t rows) { return table_of_rows(shape, rows); };
    };
    add_growth("delimited read", rows_of({}), delimited(u','));
    add_allocations("delimited read, comments", rows_of({}), delimited_with_comments);
    add_growth("line read", rows_of({}), one_field_per_line);
    add_growth("fixed-width read", fixed_width_table_of_rows, fixed_width);
    add_growth("space-aligned read", rows_of(aligned), space_aligned);
    return true;
}();

} // namespace
