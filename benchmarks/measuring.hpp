/// \file
/// How time is measured, and how figures are handed to the table.
///
/// The machine may be busy with other things, which only ever makes a run slower. So the best of
/// many runs counts, and what is compared is run in turns in one process.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// The seconds that one call of `action` takes.
template <class Action>
double seconds_of(Action&& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    benchmark::ClobberMemory();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The shortest of several times.
class BestTime {
public:
    void add(double seconds) noexcept { seconds_ = std::min(seconds_, seconds); }
    [[nodiscard]] double seconds() const noexcept { return seconds_; }

private:
    double seconds_ = std::numeric_limits<double>::infinity();
};

/// The time of a memcpy of one text, the measure of all reads.
class CopyTime {
public:
    explicit CopyTime(std::u16string_view text) : text_(text), copy_(text) {}

    /// Copies the text a few times, so that the best copy finds the text in the cache.
    void measure() {
        constexpr int copies = 3;
        for (int i = 0; i < copies; ++i) {
            best_.add(seconds_of([&] {
                std::memcpy(copy_.data(), text_.data(), text_.size() * sizeof(char16_t));
                benchmark::DoNotOptimize(copy_.data());
            }));
        }
    }

    [[nodiscard]] double seconds() const noexcept { return best_.seconds(); }

private:
    std::u16string_view text_;
    std::u16string copy_;
    BestTime best_;
};

/// Names that the table knows; a figure's target has the figure's name with this behind it.
inline constexpr const char* best_time_name = "best time";
inline constexpr std::string_view target_suffix = ", at most";

inline void report_best_time(benchmark::State& state, const BestTime& time) {
    state.counters[best_time_name] = time.seconds();
}

/// A figure without a target.
inline void report(benchmark::State& state, const std::string& figure, double value) {
    state.counters[figure] = value;
}

/// A figure that is to be at most `target`.
inline void report(benchmark::State& state, const std::string& figure, double value,
                   double target) {
    report(state, figure, value);
    report(state, figure + std::string(target_suffix), target);
}

} // namespace bench
