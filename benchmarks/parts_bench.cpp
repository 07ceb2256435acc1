// What detection does besides reading: classifying fields, applying the rules, and looking for
// columns that are blank on every line.

#include "measuring.hpp"
#include "parser/read_sample.hpp"
#include "textio/textio.hpp"
#include "texts.hpp"

#include <string>
#include <vector>

namespace {

using namespace bench;
using textio::Field;
using textio::StrategyValuation;
using zentor::io::text::typedetection::FieldClass;
using zentor::io::text::typedetection::TypeAnalyzer;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

constexpr std::size_t field_count = 1'000;

std::u16string number(RandomSource& random) {
    return random.decimal(6, 3, u'.');
}
std::u16string word(RandomSource& random) {
    return random.letters(random.between(3, 14));
}
std::u16string date(RandomSource& random) {
    return random.date();
}

void measure_classify(benchmark::State& state, std::u16string (*make_field)(RandomSource&),
                      FieldClass expected) {
    RandomSource random;
    std::u16string text;
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i < field_count; ++i) {
        text += make_field(random);
        ends.push_back(text.size());
    }
    std::vector<Field> fields;
    std::size_t start = 0;
    for (const std::size_t end : ends) {
        fields.emplace_back(text.data() + start, end - start);
        start = end;
    }
    const TypeAnalyzer<false> analyzer{TypeAnalyzerOptions()};
    for (const Field& field : fields) {
        if (analyzer.classify(field) != expected) {
            state.SkipWithError("a field has another class");
            return;
        }
    }
    CopyTime copy(text);
    BestTime all;
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = seconds_of([&] {
            for (const Field& field : fields) {
                benchmark::DoNotOptimize(analyzer.classify(field));
            }
        });
        all.add(seconds);
        copy.measure();
        state.SetIterationTime(seconds);
    }
    constexpr double nano = 1e9;
    report_best_time(state, all);
    report(state, "ns per field", all.seconds() * nano / field_count);
    report(state, "x memcpy", all.seconds() / copy.seconds());
}

/// Candidates that only the last rule can tell apart, so that every rule weighs all of them.
void measure_rules(benchmark::State& state) {
    constexpr std::size_t candidates = 51;
    constexpr int picks = 100; // one is too short for the clock
    std::vector<StrategyValuation> valuations(candidates);
    for (std::size_t i = 0; i < candidates; ++i) {
        StrategyValuation& valuation = valuations[i];
        valuation.overall_variation = 0.25;
        valuation.data_variation = 0.0;
        valuation.num_lines = 1'000;
        valuation.median_fields = 10;
        valuation.num_variables = 10;
        valuation.classified_variables = 10;
        valuation.temporal_variables = 1;
        valuation.numeric_variables = 5;
        valuation.header_lines = 2;
        valuation.prior_rank = static_cast<double>(candidates - 1 - i);
    }
    const textio::detection::ClassicRules rules(true, 0, true);
    if (rules.pick(valuations) != candidates - 1) {
        state.SkipWithError("another candidate won");
        return;
    }
    BestTime chain;
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = seconds_of([&] {
            for (int i = 0; i < picks; ++i) {
                benchmark::DoNotOptimize(rules.pick(valuations));
            }
        });
        chain.add(seconds / picks);
        state.SetIterationTime(seconds);
    }
    report_best_time(state, chain);
}

/// The space-aligned reading is said to be irregular, for otherwise nothing is searched, and to
/// have fewer columns than are found, so that the search alone is measured and no fixed-width read.
void measure_column_search(benchmark::State& state, std::size_t rows) {
    const std::u16string units = space_aligned_rows(rows);
    const Field text(units);
    const textio::parser::options options;
    const TypeAnalyzerOptions type_options;
    textio::output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = SIZE_MAX;
    const auto lines = std::make_shared<textio::LineReaderStrategy>(options, type_options);
    const auto aligned = std::make_shared<textio::SpaceAlignedStrategy>(options, type_options);
    textio::parser::read_sample(builder, lines, true);
    textio::parser::read_sample(builder, aligned, true);
    aligned->valuation().data_variation = 1;
    aligned->valuation().num_variables = 1;
    CopyTime copy(units);
    BestTime search;
    for ([[maybe_unused]] auto _ : state) {
        std::vector<std::shared_ptr<textio::GenericStrategy>> candidates;
        const double seconds = seconds_of([&] {
            textio::detection::add_possible_fixed_strategy(
                aligned, text, *lines->field_array(), candidates, options, type_options, builder);
        });
        if (candidates != std::vector<std::shared_ptr<textio::GenericStrategy>>{aligned}) {
            state.SkipWithError("a fixed-width reading was made");
            return;
        }
        search.add(seconds);
        copy.measure();
        state.SetIterationTime(seconds);
    }
    report_best_time(state, search);
    report(state, "x memcpy", search.seconds() / copy.seconds());
}

const bool added = [] {
    const auto add = [](const std::string& name, auto... arguments) {
        benchmark::RegisterBenchmark(name.c_str(), arguments...)->UseManualTime();
    };
    add("classify, numbers", measure_classify, number, FieldClass::number);
    add("classify, words", measure_classify, word, FieldClass::text);
    add("classify, dates", measure_classify, date, FieldClass::date);
    add("rule chain, 51 candidates", measure_rules);
    for (const std::size_t rows : {250U, 10'000U}) {
        add("fixed-width column search, " + std::to_string(rows) + " rows", measure_column_search,
            rows);
    }
    return true;
}();

} // namespace
