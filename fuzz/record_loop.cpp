// Each record loop by itself, under any rules.
#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"
#include "parser/parser_exception.hpp"
#include "samples.hpp"
#include "support/odd_options.hpp"

namespace {

using namespace textio;
using namespace textio::parser;
using fuzz::require;

struct Outcome {
    FieldArray sample;
    ReadCounts counts;
    Field rest;
    bool failed = false;
};

template <class Reader>
Outcome read_with(const Reader& reader, const options& options, const Field& text, std::size_t rows,
                  std::size_t lines) {
    Outcome outcome;
    outcome.rest = text;
    output::DetectionOutputBuilder builder = fuzz::new_builder(options.whitespace);
    builder.limit_fields = reader.field_limit != SIZE_MAX;
    builder.field_limit = reader.field_limit;
    try {
        outcome.counts = read_records(options, reader, rows, lines, outcome.rest, builder);
    } catch (const exception::parser_exception&) {
        outcome.failed = true;
    }
    outcome.sample = std::move(*builder.field_array);
    fuzz::check_sample(outcome.sample, text);
    return outcome;
}

/// Reads by the short way where it is open, and once more by the full set of rules.
template <class Reader>
Outcome read(const options& options, const Field& text, std::size_t rows, std::size_t lines) {
    const Reader reader(options);
    const Outcome outcome = read_with(reader, options, text, rows, lines);
    Reader full_reader(options);
    full_reader.has_plain_records = false;
    const Outcome full = read_with(full_reader, options, text, rows, lines);
    require(outcome.failed == full.failed && fuzz::equal(outcome.sample, full.sample),
            "the short way gives the same sample");
    require(outcome.failed ||
                (outcome.counts.consumed == full.counts.consumed &&
                 outcome.counts.lines == full.counts.lines &&
                 outcome.counts.rows == full.counts.rows && outcome.rest.data == full.rest.data),
            "the short way goes as far");
    return outcome;
}

/// The units that a reading of all of `text` may count: where the end of the text ends a line by
/// itself, it is counted as well.
std::size_t most_consumed(const options& options, const Field& text) {
    const std::u16string end(1, end_of_text);
    return text.size + (std::ranges::count(options.line_endings, end) == 0 ? 0 : 1);
}

void check_counts(const Outcome& outcome, const options& options, const Field& text,
                  std::size_t rows) {
    const ReadCounts& counts = outcome.counts;
    const std::size_t passed = std::min(counts.consumed, text.size);
    require(counts.consumed <= most_consumed(options, text) &&
                outcome.rest.data == text.data + passed && outcome.rest.size == text.size - passed,
            "what was consumed and what is left are the text");
    require(counts.rows <= rows && counts.rows <= counts.lines, "rows are lines, and not too many");
    if (options.empty_line_rule == empty_line::keep) {
        require(outcome.sample.line_count() == counts.lines, "each line is kept");
    }
}

/// Reading in two goes gives what one go gives.
template <class Reader>
void check_stopping(const options& options, const Field& text, const Outcome& whole,
                    std::size_t rows) {
    Outcome parts = read<Reader>(options, text, rows, SIZE_MAX);
    require(!parts.failed, "a part fails no sooner than the whole");
    const Outcome second = read<Reader>(options, parts.rest, SIZE_MAX, SIZE_MAX);
    require(!second.failed, "a part fails no sooner than the whole");
    for (const std::size_t end : second.sample.line_ends) {
        parts.sample.line_ends.push_back(parts.sample.fields.size() + end);
    }
    parts.sample.fields.insert(parts.sample.fields.end(), second.sample.fields.begin(),
                               second.sample.fields.end());
    require(fuzz::equal(parts.sample, whole.sample) &&
                parts.counts.consumed + second.counts.consumed == whole.counts.consumed &&
                parts.counts.lines + second.counts.lines == whole.counts.lines &&
                parts.counts.rows + second.counts.rows == whole.counts.rows,
            "two goes read what one reads");
}

template <class Reader>
void check_reader(const options& options, const Field& text, std::size_t rows, std::size_t lines) {
    const Outcome outcome = read<Reader>(options, text, rows, lines);
    if (!outcome.failed) {
        check_counts(outcome, options, text, rows);
    }
    const Outcome whole = read<Reader>(options, text, SIZE_MAX, SIZE_MAX);
    if (!whole.failed) {
        check_counts(whole, options, text, SIZE_MAX);
        require(whole.rest.unit_at(0) == end_of_text, "all of the text is read");
        check_stopping<Reader>(options, text, whole, rows);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::uint8_t reader = input.byte() % 3;
    const std::size_t rows = input.size(3);
    const std::size_t lines = input.size(SIZE_MAX);
    options options = input.reading_options();
    if (input.flag(false)) {
        options = test::odd_options([&input](std::size_t count) { return input.byte() % count; });
    }
    const fuzz::Text text = input.text();
    switch (reader) {
    case 0:
        check_reader<DelimitedRecordReader>(options, text.field(), rows, lines);
        break;
    case 1:
        check_reader<FixedWidthRecordReader>(options, text.field(), rows, lines);
        break;
    default:
        check_reader<LineRecordReader>(options, text.field(), rows, lines);
    }
    return 0;
}
