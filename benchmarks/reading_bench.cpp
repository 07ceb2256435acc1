// Reading on, set against the sample's read of the same text, in turns: what is measured is a
// ratio. The time that the source takes to deliver is the host's, and left out.

#include "measuring.hpp"
#include "parser/read_sample.hpp"
#include "textio/reading.hpp"
#include "textio/utf8.hpp"
#include "texts.hpp"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace bench;
using textio::Field;
using textio::GenericStrategy;
using textio::reading::Reader;
using textio::reading::Settings;
using zentor::io::text::stream::TextSource;
using zentor::io::text::stream::TextStream;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

using MakeStrategy = std::function<std::shared_ptr<GenericStrategy>()>;

/// Delivers a text in memory.
class MemorySource : public TextSource {
public:
    explicit MemorySource(std::u16string_view text) : rest_(text) {}

    std::size_t read(char16_t* begin, char16_t* end) override {
        const std::size_t count = std::min(rest_.size(), static_cast<std::size_t>(end - begin));
        std::copy_n(rest_.begin(), count, begin);
        rest_.remove_prefix(count);
        return count;
    }

private:
    std::u16string_view rest_;
};

double seconds_of_sample(const std::u16string& text, const MakeStrategy& make_strategy) {
    const std::shared_ptr<GenericStrategy> strategy = make_strategy();
    const Field view(text);
    textio::output::DetectionOutputBuilder builder;
    builder.text = &view;
    builder.sample_lines = SIZE_MAX;
    return seconds_of([&] { textio::parser::read_sample(builder, strategy, false); });
}

void read_all(Reader& reader) {
    std::size_t fields = 0;
    while (reader.next()) {
        fields += reader.fields().size();
    }
    benchmark::DoNotOptimize(fields);
}

/// Reads the text where it lies.
double seconds_of_reading(const std::u16string& text, const GenericStrategy& layout) {
    return seconds_of([&] {
        Reader reader(layout, Field(text));
        read_all(reader);
    });
}

/// Reads the text from a stream.
double seconds_of_reading(const std::u16string& text, const GenericStrategy& layout,
                          std::size_t chunk) {
    MemorySource source(text);
    TextStream stream(source);
    return seconds_of([&] {
        Settings settings;
        settings.chunk_units = chunk;
        Reader reader(layout, stream, std::move(settings));
        read_all(reader);
    });
}

/// What the source alone takes for that.
double seconds_of_source(const std::u16string& text, std::size_t chunk) {
    MemorySource source(text);
    std::u16string buffer(chunk, u' ');
    return seconds_of([&] {
        while (source.read(buffer.data(), buffer.data() + chunk) == chunk) {
            benchmark::ClobberMemory();
        }
    });
}

void add_reading(const std::string& name, std::function<std::u16string(std::size_t)> make_text,
                 MakeStrategy make_strategy) {
    constexpr double most_reads = 1.3;
    struct Chunk {
        const char* name;
        std::size_t units;
    };
    constexpr std::size_t units = 1'000'000;
    for (const Chunk chunk : {Chunk{"in memory", 0}, Chunk{"64 KiB", 0x8000},
                              Chunk{"256 KiB", 0x20000}, Chunk{"4 MiB", 0x200000}}) {
        const std::string full_name = "read on, " + name + ", " + chunk.name;
        benchmark::RegisterBenchmark(full_name.c_str(), [=](benchmark::State& state) {
            const std::u16string text = make_text(units);
            const auto layout = make_strategy();
            BestTime sample;
            BestTime reading;
            BestTime source;
            for ([[maybe_unused]] auto _ : state) {
                sample.add(seconds_of_sample(text, make_strategy));
                source.add(chunk.units == 0 ? 0 : seconds_of_source(text, chunk.units));
                const double seconds = chunk.units == 0
                                           ? seconds_of_reading(text, *layout)
                                           : seconds_of_reading(text, *layout, chunk.units);
                reading.add(seconds);
                state.SetIterationTime(seconds);
            }
            report_best_time(state, reading);
            report(state, "x the sample's read",
                   (reading.seconds() - source.seconds()) / sample.seconds(), most_reads);
        })->UseManualTime();
    }
}

/// Decoding, set against a copy of what it makes.
void add_decoding(const std::string& name, std::string_view odd, std::size_t every) {
    benchmark::RegisterBenchmark(("UTF-8, " + name).c_str(), [=](benchmark::State& state) {
        std::string bytes;
        for (std::size_t unit = 0; bytes.size() < 100'000; ++unit) {
            bytes += every != 0 && unit % every == 0 ? odd : std::string_view("x");
        }
        const std::u16string text = textio::utf8::decode(bytes).text;
        CopyTime copy(text);
        BestTime decoding;
        for ([[maybe_unused]] auto _ : state) {
            copy.measure();
            const double seconds =
                seconds_of([&] { benchmark::DoNotOptimize(textio::utf8::decode(bytes)); });
            decoding.add(seconds);
            state.SetIterationTime(seconds);
        }
        report_best_time(state, decoding);
        report(state, "x memcpy of the text", decoding.seconds() / copy.seconds());
    })->UseManualTime();
}

textio::parser::options options_without_comments() {
    textio::parser::options options;
    options.comment_style.clear();
    return options;
}

const bool added = [] {
    const auto by_comma = [] {
        return std::make_shared<textio::DelimitedStrategy>(options_without_comments(),
                                                           TypeAnalyzerOptions(), u',');
    };
    const auto table = [](TableShape shape) {
        return [shape](std::size_t units) { return table_of_units(shape, units); };
    };
    add_reading("delimited", table({}), by_comma);
    add_reading("delimited, short fields", table({.least_field_units = 1, .most_field_units = 3}),
                by_comma);
    add_reading("delimited, quoted", table({.quoted = true}), by_comma);
    add_reading("delimited, comments looked for", table({}), [] {
        return std::make_shared<textio::DelimitedStrategy>(textio::parser::options(),
                                                           TypeAnalyzerOptions(), u',');
    });
    add_reading("space-aligned", table({.most_blanks = 6}), [] {
        return std::make_shared<textio::SpaceAlignedStrategy>(options_without_comments(),
                                                              TypeAnalyzerOptions());
    });
    add_reading("fixed width", fixed_width_table_of_units, [] {
        return std::make_shared<textio::FixedWidthStrategy>(
            options_without_comments(), TypeAnalyzerOptions(),
            std::vector<std::size_t>(table_columns, 8));
    });
    add_reading("one field per line", table({}), [] {
        return std::make_shared<textio::LineReaderStrategy>(options_without_comments(),
                                                            TypeAnalyzerOptions());
    });
    add_decoding("ASCII", "", 0);
    add_decoding("an umlaut in 12 units", "\xC3\xA4", 12);
    add_decoding("nothing but Cyrillic", "\xD0\x96", 1);
    add_decoding("nothing but malformed bytes", "\xFF", 1);
    return true;
}();

} // namespace
