// Looks for texts and options whose time grows faster than they do. The input is cut into parts,
// each part is repeated, and the text that comes of that is made eight times as long by repeating
// each part more often. The bytes of the options choose what is done with it.
#include "input.hpp"
#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"
#include "parser/parser_exception.hpp"
#include "samples.hpp"
#include "textio/textio.hpp"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

using namespace textio;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

constexpr std::size_t short_units = 4'000;
constexpr std::size_t times_longer = 8;

struct Task {
    std::uint8_t operation;
    parser::options options;
    TypeAnalyzerOptions type_options;
};

/// Up to four like parts of `pattern`, each repeated as often as makes a quarter of `units`.
std::u16string text_of(const Field& pattern, std::size_t parts, std::size_t units) {
    std::u16string text;
    const std::size_t part_units = std::max<std::size_t>(1, pattern.size / parts);
    for (std::size_t part = 0; part < parts; ++part) {
        const std::size_t begin = std::min(part * part_units, pattern.size);
        const std::u16string_view piece = pattern.view().substr(begin, part_units);
        const std::size_t end = text.size() + units / parts;
        while (!piece.empty() && text.size() < end) {
            text += piece;
        }
    }
    return text;
}

template <class Reader>
void read(const Task& task, Field text) {
    output::DetectionOutputBuilder builder = fuzz::new_builder(task.options.whitespace);
    const Reader reader(task.options);
    builder.limit_fields = reader.field_limit != SIZE_MAX;
    builder.field_limit = reader.field_limit;
    try {
        read_records(task.options, reader, SIZE_MAX, SIZE_MAX, text, builder);
    } catch (const parser::exception::parser_exception&) {
        return;
    }
}

void run(const Task& task, const Field& text) {
    switch (task.operation) {
    case 1:
        return read<parser::DelimitedRecordReader>(task, text);
    case 2:
        return read<parser::FixedWidthRecordReader>(task, text);
    case 3:
        return read<parser::LineRecordReader>(task, text);
    case 4:
        static_cast<void>(
            zentor::io::text::typedetection::TypeAnalyzer<false>(task.type_options).classify(text));
        return;
    default:
        detection::StrategySelector selector(task.options, task.type_options);
        static_cast<void>(selector.pick_strategy(text, SIZE_MAX));
    }
}

double thread_seconds() {
    constexpr double nano = 1e-9;
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * nano;
}

double seconds_of(const Task& task, const std::u16string& text) {
    const double start = thread_seconds();
    run(task, Field(text));
    return thread_seconds() - start;
}

/// Whether `longer` takes far more than its share. What a busy machine did to one run, it does not
/// do to the best of several.
bool grows_too_fast(const Task& task, const std::u16string& shorter, const std::u16string& longer) {
    constexpr double telling_seconds = 0.02;
    constexpr int runs = 4;
    const double most_growth = std::pow(times_longer, 1.4);
    double long_time = seconds_of(task, longer);
    double short_time = seconds_of(task, shorter);
    for (int i = 0; i < runs && long_time > telling_seconds && long_time > most_growth * short_time;
         ++i) {
        long_time = std::min(long_time, seconds_of(task, longer));
        short_time = std::max(short_time, seconds_of(task, shorter));
    }
    return long_time > telling_seconds && long_time > most_growth * short_time;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::uint8_t operation = input.byte() % 5;
    const std::size_t parts = 1 + input.byte() % 4;
    const Task task{operation, input.reading_options(), input.type_options()};
    const fuzz::Text pattern = input.text();
    fuzz::require(!grows_too_fast(task, text_of(pattern.field(), parts, short_units),
                                  text_of(pattern.field(), parts, short_units * times_longer)),
                  "time grows no faster than the text");
    return 0;
}
