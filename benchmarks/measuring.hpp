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
#include <ctime>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// The seconds that this thread has been running.
inline double thread_seconds() {
    constexpr double nano = 1e-9;
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * nano;
}

/// The seconds that one call of `action` takes. Among many short calls there is one that nothing
/// disturbs, so their time is what passes on the wall. A long call is always interrupted on a busy
/// machine; its time is what this thread was running, on a clock too coarse for short ones.
template <class Action>
double seconds_of(Action&& action) {
    constexpr double longest_undisturbed = 2e-3;
    const double thread_start = thread_seconds();
    const auto start = std::chrono::steady_clock::now();
    action();
    benchmark::ClobberMemory();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    return passed.count() < longest_undisturbed ? passed.count() : thread_seconds() - thread_start;
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

    /// Copies the text a few times. The first copy, which finds other things in the cache, is not
    /// timed.
    void measure() {
        constexpr int copies = 8;
        copy();
        const double seconds = seconds_of([this] {
            for (int i = 0; i < copies; ++i) {
                copy();
            }
        });
        best_.add(seconds / copies);
    }

    [[nodiscard]] double seconds() const noexcept { return best_.seconds(); }

private:
    void copy() {
        std::memcpy(copy_.data(), text_.data(), text_.size() * sizeof(char16_t));
        benchmark::ClobberMemory();
    }

    std::u16string_view text_;
    std::u16string copy_;
    BestTime best_;
};

/// Names that the table knows; a figure's target has the figure's name with this behind it.
inline constexpr const char* best_time_name = "best time";
inline constexpr std::string_view target_suffix = ", at most";

inline void report_best_time(benchmark::State& state, double seconds) {
    state.counters[best_time_name] = seconds;
}
inline void report_best_time(benchmark::State& state, const BestTime& time) {
    report_best_time(state, time.seconds());
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

/// `count` texts of `size` each, all parts of one. Of one text read again and again, a processor
/// would learn the branches, which says nothing of the next text. `make_text` gives the beginning
/// of one text, of a given size.
template <class MakeText>
std::vector<std::u16string> parts_of_a_text(MakeText&& make_text, std::size_t size,
                                            std::size_t count) {
    const std::u16string whole = make_text(count * size);
    std::vector<std::u16string> parts;
    std::size_t begin = 0;
    for (std::size_t part = 1; part <= count; ++part) {
        const std::size_t end = make_text(part * size).size();
        parts.push_back(whole.substr(begin, end - begin));
        begin = end;
    }
    return parts;
}

/// The mean of several best times.
template <class Time>
double mean_seconds(const std::vector<Time>& times) {
    double sum = 0;
    for (const Time& time : times) {
        sum += time.seconds();
    }
    return sum / static_cast<double>(times.size());
}

/// Compares a text of `10 * rows` rows with its ten parts of `rows` rows. `make_text` gives the
/// first so many rows of one text.
template <class MakeText, class SecondsOfText>
void measure_growth(benchmark::State& state, std::size_t rows, MakeText&& make_text,
                    SecondsOfText&& seconds_of_text) {
    constexpr std::size_t count = 10;
    constexpr double most_growth = 11;
    const std::u16string whole = make_text(count * rows);
    const std::vector<std::u16string> parts = parts_of_a_text(make_text, rows, count);
    BestTime all_parts;
    BestTime together;
    for ([[maybe_unused]] auto _ : state) {
        double seconds = 0;
        for (const std::u16string& part : parts) {
            seconds += seconds_of_text(part);
        }
        all_parts.add(seconds);
        const double seconds_together = seconds_of_text(whole);
        together.add(seconds_together);
        state.SetIterationTime(seconds_together);
    }
    report_best_time(state, together);
    report(state, "x the time of a tenth",
           together.seconds() * static_cast<double>(count) / all_parts.seconds(), most_growth);
}

} // namespace bench
