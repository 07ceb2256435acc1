#include "table_reporter.hpp"

#include "measuring.hpp"

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

namespace bench {

namespace {

/// Three digits that mean something, never an exponent.
std::string shown(double value) {
    std::array<char, 32> buffer{};
    const int decimals = value < 9.995 ? 2 : value < 99.95 ? 1 : 0;
    std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
    return buffer.data();
}

std::string shown_time(double seconds) {
    constexpr double nano = 1e9;
    constexpr double micro = 1e6;
    constexpr double milli = 1e3;
    if (seconds < 1 / micro) {
        return shown(seconds * nano) + " ns";
    }
    if (seconds < 1 / milli) {
        return shown(seconds * micro) + " us";
    }
    return seconds < 1 ? shown(seconds * milli) + " ms" : shown(seconds) + " s";
}

void print_row(const std::string& what, const std::string& time, const std::string& figure,
               const std::string& target, const std::string& met) {
    std::printf("%-62s %9s  %-30s %8s  %s\n", what.c_str(), time.c_str(), figure.c_str(),
                target.c_str(), met.c_str());
}

} // namespace

bool TableReporter::ReportContext(const Context& /*context*/) {
    if (with_heading_) {
        print_row("what", "best time", "figure", "at most", "");
        std::puts(std::string(121, '-').c_str());
    }
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            has_errors_ = true;
            std::printf("%s: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
        } else if (run.run_type == Run::RT_Iteration) {
            print_run(run);
        }
    }
    std::fflush(stdout);
}

void TableReporter::print_run(const Run& run) {
    const auto best = run.counters.find(best_time_name);
    const std::string time = best == run.counters.end() ? "" : shown_time(best->second.value);
    const std::string& name = run.run_name.function_name;
    bool has_figure = false;
    for (const auto& [figure, counter] : run.counters) {
        if (figure == best_time_name || figure.ends_with(target_suffix)) {
            continue;
        }
        const auto target = run.counters.find(figure + std::string(target_suffix));
        const bool has_target = target != run.counters.end();
        const bool met = has_target && counter.value <= target->second.value;
        print_row(name, time, shown(counter.value) + " " + figure,
                  has_target ? shown(target->second.value) : "",
                  has_target ? (met ? "met" : "NOT MET") : "");
        has_figure = true;
    }
    if (!has_figure) {
        print_row(name, time, "", "", "");
    }
}

int run_and_print_table(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const bool no_heading = argc == 2 && std::string_view(argv[1]) == "--no_heading";
    if (argc > 1 && !no_heading) {
        benchmark::ReportUnrecognizedArguments(argc, argv);
        return 1;
    }
    TableReporter reporter(!no_heading);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.has_errors() ? 1 : 0;
}

} // namespace bench
