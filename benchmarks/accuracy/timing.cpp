#include "timing.hpp"

#include "answer.hpp"
#include "heap_use.hpp"
#include "measuring.hpp"
#include "tally.hpp"
#include "textio/advice.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <string>

namespace accuracy {

namespace {

constexpr int turns = 15;
constexpr double micro = 1e6;

/// The value that a share of all are below.
double percentile(std::vector<double> values, double share) {
    const auto place = static_cast<std::size_t>(share * static_cast<double>(values.size()));
    const auto found =
        values.begin() + static_cast<std::ptrdiff_t>(std::min(place, values.size() - 1));
    std::nth_element(values.begin(), found, values.end());
    return *found;
}

std::vector<std::string> row_of(const std::string& what, const std::vector<double>& values,
                                bool has_sum) {
    const double sum = std::accumulate(values.begin(), values.end(), 0.0);
    return {what,
            fmt::format("{:.3g}", percentile(values, 0.5)),
            fmt::format("{:.3g}", percentile(values, 0.9)),
            fmt::format("{:.3g}", percentile(values, 0.99)),
            fmt::format("{:.3g}", *std::max_element(values.begin(), values.end())),
            has_sum ? fmt::format("{:.0f}", sum) : "-"};
}

/// The best time that `answer` takes for each text. They are taken in turn, for of one text asked
/// about again and again a processor would learn the branches.
template <class Answer>
std::vector<bench::BestTime> best_times(const std::vector<LabelledText>& texts, Answer answer) {
    std::vector<bench::BestTime> times(texts.size());
    for (int turn = 0; turn < turns; ++turn) {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const textio::Field text(texts[i].text);
            times[i].add(bench::seconds_of([&] { benchmark::DoNotOptimize(answer(text)); }));
        }
    }
    return times;
}

} // namespace

void print_times(const std::vector<LabelledText>& texts) {
    if (texts.empty()) {
        return;
    }
    const auto pick_times = best_times(texts, pick);
    const auto advise_times = best_times(
        texts, [](const textio::Field& text) { return textio::advice::advise(text, sample_rows); });
    std::vector<double> picked;
    std::vector<double> advised;
    std::vector<double> allocations;
    std::map<std::string, std::vector<double>> ratios;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        picked.push_back(pick_times[i].seconds() * micro);
        advised.push_back(advise_times[i].seconds() * micro);
        const double ratio = advise_times[i].seconds() / pick_times[i].seconds();
        ratios["all"].push_back(ratio);
        ratios[texts[i].label.at("kind")].push_back(ratio);
        const std::size_t before = bench::heap_use().allocations;
        pick(textio::Field(texts[i].text));
        allocations.push_back(static_cast<double>(bench::heap_use().allocations - before));
    }
    Table table({"", "median", "90 %", "99 %", "most", "sum"});
    table.add(row_of("`pick_strategy`, us", picked, true));
    table.add(row_of("`advise`, us", advised, true));
    table.add(row_of("`pick_strategy`, allocations", allocations, true));
    for (const auto& [kind, values] : ratios) {
        table.add(row_of("`advise` over `pick_strategy`, " + kind, values, false));
    }
    table.print();
}

} // namespace accuracy
