// How the time of each operation grows with its input. Four sizes, each twice the one before, and
// the exponent that fits them best: 1 is linear. What a processor does slower once its caches are
// full shows as well, so a sort or a walk through much memory has up to 1.3.

#include "growth_cases.hpp"
#include "heap_use.hpp"
#include "measuring.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <regex>
#include <span>

namespace {

using namespace bench;

constexpr std::array<std::size_t, 4> sizes{50'000, 100'000, 200'000, 400'000};
constexpr double most_growth = 1.35;

/// The best time of several runs. What takes long is run less often.
double seconds_at(const GrowthCase& growth_case, std::size_t size) {
    constexpr double time_to_spend = 0.05;
    constexpr int most_runs = 20;
    const std::function<void()> action = growth_case.prepare(size);
    BestTime best;
    double spent = 0;
    for (int run = 0; run < most_runs && spent < time_to_spend; ++run) {
        const double seconds = seconds_of(action);
        best.add(seconds);
        spent += seconds;
    }
    return best.seconds();
}

/// The slope of the line that comes nearest to the logarithms of times over those of sizes.
double exponent(std::span<const double> seconds) {
    double mean = 0;
    for (const double value : seconds) {
        mean += std::log2(value) / static_cast<double>(seconds.size());
    }
    double above = 0;
    double below = 0;
    for (std::size_t i = 0; i < seconds.size(); ++i) {
        const double step = static_cast<double>(i) - static_cast<double>(seconds.size() - 1) / 2;
        above += step * (std::log2(seconds[i]) - mean);
        below += step * step;
    }
    return above / below;
}

/// Prints a case's line. Gives whether it grows no faster than it may.
bool measure(const GrowthCase& growth_case) {
    constexpr double milli = 1e3;
    constexpr double least_seconds = 2e-5; // of less, the clock tells nothing
    std::array<double, sizes.size()> seconds{};
    std::printf("%-60s", growth_case.name.c_str());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        seconds[i] = seconds_at(growth_case, sizes[i]);
        std::printf(" %9.3f", seconds[i] * milli);
        std::fflush(stdout);
    }
    const bool is_told = seconds.back() > least_seconds;
    const double growth = exponent(seconds);
    const bool met = !is_told || growth <= most_growth;
    std::printf(is_told ? "  %5.2f%s\n" : "      -\n", growth, met ? "" : "  NOT MET");
    return met;
}

} // namespace

/// The cases whose names match the regular expression that is given, or all.
int main(int argc, char** argv) {
    keep_freed_memory();
    const std::regex wanted(argc > 1 ? argv[1] : ".");
    std::printf("%-60s", "ms at units or parts");
    for (const std::size_t size : sizes) {
        std::printf(" %9zu", size);
    }
    std::puts("  exponent");
    bool met = true;
    for (const auto& cases : {text_cases(), operation_cases()}) {
        for (const GrowthCase& growth_case : cases) {
            met = (!std::regex_search(growth_case.name, wanted) || measure(growth_case)) && met;
        }
    }
    return met ? 0 : 1;
}
