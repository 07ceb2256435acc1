// Texts made to be expensive, each against an ordinary table of the same size in which as many
// characters can be delimiters. Run each in a process of its own, with a limit of time and memory:
// what these texts would uncover is a cost that grows faster than the text.

#include "heap_use.hpp"
#include "measuring.hpp"
#include "own_reads.hpp"
#include "textio/textio.hpp"
#include "texts.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace bench;
using textio::Field;

constexpr std::size_t most_units = 50'000'000;
constexpr std::size_t usual_units = 10'000'000;

struct Rows {
    std::size_t columns;
    std::size_t width; ///< of a column, in code units
};

/// A field of 5 units is the mean of the fields of 234 delimited files of many makers.
constexpr Rows ordinary_rows = {.columns = table_columns, .width = 5};

struct Shape {
    std::string name;
    std::u16string (*make_text)();
    textio::parser::options options = {};
    /// Where lines are a few units long, rows about as short. They are what has the limit then, as
    /// a line has its price: the time against an ordinary table is only told.
    std::optional<Rows> short_rows = {};
    double most_times = 2;
};

constexpr double most_times_of_comments = 12; ///< they have no short way

/// Rows separated by a comma if `candidates` holds one, else by its first unit. All other
/// candidates stand here and there inside the fields, so that they are tried too.
std::u16string table_of(const Rows& rows, std::size_t units, std::u16string_view candidates) {
    constexpr std::size_t strays = 3;
    const auto [columns, width] = rows;
    RandomSource random;
    const bool has_comma = candidates.find(u',') != std::u16string_view::npos;
    std::u16string text;
    text.reserve(units + columns * (width + 1));
    while (text.size() < units) {
        std::u16string row;
        for (std::size_t column = 0; column < columns; ++column) {
            if (column > 0 && !candidates.empty()) {
                row += has_comma ? u',' : candidates.front();
            }
            row += random.letters(width);
        }
        for (std::size_t stray = 0; candidates.size() > 1 && stray < strays; ++stray) {
            row[random.between(0, columns - 1) * (width + 1) + width / 2] =
                random.one_of(candidates);
        }
        text += row + u'\n';
    }
    text.resize(units);
    return text;
}

double seconds_of_pick(const std::u16string& units, const DetectionOptions& options,
                       std::size_t& peak_bytes) {
    const Field text(units);
    std::shared_ptr<textio::GenericStrategy> answer;
    const std::size_t held_before = heap_use().held_bytes;
    restart_peak();
    const double seconds = seconds_of([&] {
        textio::detection::StrategySelector selector(options.read, options.type);
        answer = selector.pick_strategy(text, SIZE_MAX);
    });
    peak_bytes = heap_use().peak_bytes - held_before;
    return seconds;
}

/// Of a few fields the memory is that of the run itself.
void report_memory(benchmark::State& state, std::size_t peak_bytes, std::size_t fields) {
    constexpr std::size_t few_fields = 1'000;
    constexpr double most_bytes = 64;
    const auto bytes = static_cast<double>(peak_bytes);
    if (fields < few_fields) {
        report(state, "bytes of heap in all", bytes);
    } else {
        report(state, "bytes per field read", bytes / static_cast<double>(fields), most_bytes);
    }
}

/// A table that a text is compared with.
class Peer {
public:
    Peer(const Rows& rows, std::size_t units, const OwnReads& own)
        : table_(table_of(rows, units, own.delimiters)),
          figure_("x rows of " + std::to_string(rows.columns * (rows.width + 1)) + " units, " +
                  std::to_string(own.delimiters.size()) + " cand.") {}

    void measure(const DetectionOptions& options) {
        std::size_t peak_bytes = 0;
        time_.add(seconds_of_pick(table_, options, peak_bytes));
    }

    [[nodiscard]] const std::u16string& table() const { return table_; }
    [[nodiscard]] const std::string& figure() const { return figure_; }
    [[nodiscard]] double seconds() const { return time_.seconds(); }

private:
    std::u16string table_;
    std::string figure_;
    BestTime time_;
};

void measure_shape(benchmark::State& state, const Shape& shape) {
    constexpr double nano = 1e9;
    const DetectionOptions options{.read = shape.options, .type = {}};
    const std::u16string hostile = shape.make_text();
    const OwnReads own = own_reads(Field(hostile), options);
    Peer ordinary(ordinary_rows, hostile.size(), own);
    std::optional<Peer> alike;
    if (shape.short_rows) {
        alike.emplace(*shape.short_rows, hostile.size(), own);
    }
    BestTime time;
    std::size_t peak_bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = seconds_of_pick(hostile, options, peak_bytes);
        time.add(seconds);
        ordinary.measure(options);
        if (alike) {
            alike->measure(options);
        }
        state.SetIterationTime(seconds);
    }
    const double units = static_cast<double>(hostile.size());
    const double reads = static_cast<double>(own.reads.size());
    const double times_ordinary = time.seconds() / ordinary.seconds();
    report_best_time(state, time);
    report(state, "ns per unit and read", time.seconds() * nano / units / reads);
    if (alike) {
        report(state, ordinary.figure(), times_ordinary);
        report(state, alike->figure(), time.seconds() / alike->seconds(), shape.most_times);
    } else {
        report(state, ordinary.figure(), times_ordinary, shape.most_times);
    }
    const std::size_t ordinary_fields = own_reads(Field(ordinary.table()), options).fields;
    if (own.fields > ordinary_fields && ordinary_fields > 0) {
        report(state, "x an ordinary table, per field read",
               times_ordinary * static_cast<double>(ordinary_fields) /
                   static_cast<double>(own.fields));
    }
    report_memory(state, peak_bytes, own.fields);
}

std::u16string one_row(std::size_t units, std::size_t width) {
    RandomSource random;
    std::u16string text;
    text.reserve(units + width + 1);
    while (text.size() < units) {
        text += random.letters(width) + u',';
    }
    text.resize(units);
    return text;
}

std::u16string one_line() {
    return one_row(most_units, 8);
}
std::u16string one_field() {
    return RandomSource().letters(most_units);
}
std::u16string empty_lines() {
    return std::u16string(most_units, u'\n');
}

std::u16string million_columns() {
    constexpr std::size_t width = 4;
    constexpr std::size_t columns = 1'000'000;
    const std::u16string row = one_row(columns * (width + 1) - 1, width) + u'\n';
    return row + row + row + row + row;
}

template <char16_t unit>
std::u16string only() {
    return std::u16string(usual_units, unit);
}

std::u16string repeated(std::u16string_view part) {
    std::u16string text;
    text.reserve(usual_units + part.size());
    while (text.size() < usual_units) {
        text += part;
    }
    return text;
}

/// All units that can be delimiters, in another order on every line, a letter in front of each.
std::u16string all_candidates_on_every_line() {
    std::u16string ascii;
    for (char16_t unit = 0; unit < 128; ++unit) {
        ascii += unit;
    }
    std::u16string candidates;
    textio::detection::add_delims_from_line(Field(ascii), candidates);
    RandomSource random;
    std::u16string text;
    text.reserve(usual_units + 3 * candidates.size());
    while (text.size() < usual_units) {
        for (std::size_t i = candidates.size() - 1; i > 0; --i) {
            std::swap(candidates[i], candidates[random.between(0, i)]);
        }
        for (const char16_t unit : candidates) {
            text += random.letters(1) + unit;
        }
        text += u'\n';
    }
    return text;
}

std::u16string unclosed_quote() {
    return u'"' + table_of_units({}, usual_units);
}
std::u16string comments_in_a_row() {
    return repeated(u"/**/");
}
std::u16string comment_lines() {
    return repeated(u"/* */\n");
}
std::u16string comment_lines_of_60() {
    return repeated(u"/* " + std::u16string(54, u'x') + u" */\n");
}
std::u16string comments_between_rows() {
    return repeated(u"/* a\n b */ 1,2\n");
}
std::u16string comment_openers() {
    return repeated(u"/*");
}

textio::parser::options with_block_comments() {
    textio::parser::options options;
    options.comment_style = {u"/*", u"*/"};
    return options;
}

textio::parser::options without_excluded_delimiter() {
    textio::parser::options options;
    options.comment_style.clear();
    options.excluded_delimiter.clear();
    return options;
}

const bool added = [] {
    const Shape shapes[] = {
        {"one line of 50 million units", one_line},
        {"one field of 50 million units", one_field},
        {"50 million empty lines", empty_lines},
        {"a million columns", million_columns},
        {"nothing but quotes", only<u'"'>},
        {"nothing but delimiters", only<u','>},
        {"nothing but blanks", only<u' '>},
        {"nothing but NUL", only<u'\0'>},
        {"nothing but 0xFFFF", only<textio::end_of_text>},
        {"51 candidates on every line", all_candidates_on_every_line, without_excluded_delimiter()},
        {"an unclosed quote at the start", unclosed_quote},
        {"block comments in a row",
         comments_in_a_row,
         with_block_comments(),
         {},
         most_times_of_comments},
        {"short block comments, one per line", comment_lines, with_block_comments(),
         Rows{.columns = 1, .width = 5}, most_times_of_comments},
        {"block comments of 60 units, one per line",
         comment_lines_of_60,
         with_block_comments(),
         {},
         most_times_of_comments},
        {"short block comments between rows", comments_between_rows, with_block_comments(),
         Rows{.columns = 2, .width = 3}, most_times_of_comments},
        {"block comments never closed",
         comment_openers,
         with_block_comments(),
         {},
         most_times_of_comments},
    };
    constexpr int runs = 30;
    for (const Shape& shape : shapes) {
        benchmark::RegisterBenchmark(shape.name.c_str(), measure_shape, shape)
            ->UseManualTime()
            ->Iterations(runs);
    }
    return true;
}();

} // namespace
