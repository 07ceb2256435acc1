/// \file
/// Prints the results of all benchmarks as one table, with the targets beside the figures.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace bench {

/// One row for each figure that a benchmark reports.
class TableReporter : public benchmark::BenchmarkReporter {
public:
    explicit TableReporter(bool with_heading) : with_heading_(with_heading) {}
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Whether any benchmark failed to run; a target that is not met is no failure.
    [[nodiscard]] bool has_errors() const noexcept { return has_errors_; }

private:
    void print_run(const Run& run);

    bool with_heading_;
    bool has_errors_ = false;
};

/// Runs what the arguments name and prints the table; gives what `main` gives. Takes the options of
/// Google Benchmark and `--no_heading`.
int run_and_print_table(int argc, char** argv);

} // namespace bench
