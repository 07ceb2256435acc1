#include "timing.hpp"

#include "answer.hpp"
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

} // namespace

void print_times(const std::vector<LabelledText>& texts) {
    std::vector<double> picked;
    std::vector<double> advised;
    std::map<std::string, std::vector<double>> ratios;
    for (const LabelledText& labelled : texts) {
        const textio::Field text(labelled.text);
        bench::BestTime of_pick;
        bench::BestTime of_advise;
        for (int turn = 0; turn < turns; ++turn) {
            of_pick.add(bench::seconds_of([&] { benchmark::DoNotOptimize(pick(text)); }));
            of_advise.add(bench::seconds_of(
                [&] { benchmark::DoNotOptimize(textio::advice::advise(text, sample_rows)); }));
        }
        picked.push_back(of_pick.seconds() * micro);
        advised.push_back(of_advise.seconds() * micro);
        const double ratio = of_advise.seconds() / of_pick.seconds();
        ratios["all"].push_back(ratio);
        ratios[labelled.label.at("kind")].push_back(ratio);
    }
    if (texts.empty()) {
        return;
    }
    Table table({"", "median", "90 %", "99 %", "most", "sum"});
    table.add(row_of("`pick_strategy`, us", picked, true));
    table.add(row_of("`advise`, us", advised, true));
    for (const auto& [kind, values] : ratios) {
        table.add(row_of("`advise` over `pick_strategy`, " + kind, values, false));
    }
    table.print();
}

} // namespace accuracy
