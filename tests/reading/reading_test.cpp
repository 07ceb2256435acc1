#include "parser/read_sample.hpp"
#include "support/text.hpp"
#include "textio/textio.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace {

using namespace textio;
using reading::End;
using reading::Fault;
using reading::Policy;
using reading::Reader;
using zentor::io::text::stream::TextSource;
using zentor::io::text::stream::TextStream;
using TypeOptions = zentor::io::text::typedetection::TypeAnalyzerOptions;

struct Failure {};

/// Delivers a text, and fails before each read whose number can be divided by `failing`.
class Delivered : public TextSource {
public:
    explicit Delivered(std::u16string_view text, std::size_t failing = SIZE_MAX) : rest_(text), failing_(failing) {}

    std::size_t read(char16_t* begin, char16_t* end) override {
        if (++reads_ % failing_ == 0) {
            std::fill(begin, end, u'!');
            throw Failure();
        }
        const std::size_t count = std::min(rest_.size(), static_cast<std::size_t>(end - begin));
        std::copy_n(rest_.begin(), count, begin);
        rest_.remove_prefix(count);
        return count;
    }

private:
    std::u16string_view rest_;
    std::size_t failing_;
    std::size_t reads_ = 0;
};

/// The records that are left, each as its fields in brackets behind its line.
std::string shown_rest(Reader& reader) {
    std::string out;
    for (bool is_done = false; !is_done;) {
        try {
            while (reader.next()) {
                out += std::to_string(reader.line()) + ":";
                for (const Field& field : reader.fields()) {
                    out += "[" + test::shown(field.view()) + "]";
                }
                out += "/";
            }
            is_done = true;
        } catch (const Failure&) {
            is_done = false;
        }
    }
    return out;
}

template <class Answer>
std::string read_on(const Answer& answer, std::u16string_view text, std::size_t chunk, std::size_t failing = SIZE_MAX) {
    Delivered source(text, failing);
    TextStream stream(source);
    Reader reader(answer, stream, {.chunk_units = chunk});
    return shown_rest(reader);
}

std::size_t line_ends_before(std::u16string_view text, const char16_t* place, const parser::options& options) {
    const auto line_ends = get_or_create_delim(options.line_endings);
    std::size_t lines = 0;
    for (std::size_t at = 0; text.data() + at < place;) {
        const std::size_t length = line_ends->match_at(Field(text), at);
        lines += length == 0 ? 0 : 1;
        at += std::max<std::size_t>(length, 1);
    }
    return lines;
}

/// What reading on should give, from a sample of the whole text: of its lines from `first` on, or
/// of those on which the text has come to a line.
std::string from_sample(const std::shared_ptr<GenericStrategy>& layout, std::u16string_view text, std::size_t first,
                        bool by_text) {
    const Field view(text);
    output::DetectionOutputBuilder builder;
    builder.text = &view;
    builder.sample_lines = SIZE_MAX;
    parser::read_sample(builder, layout, false);
    const FieldArray& sample = *layout->field_array();
    std::string out;
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        if (sample.line(line).empty()) {
            continue;
        }
        const std::size_t place = line_ends_before(text, sample.line(line).front().data, layout->options());
        if ((by_text ? place : line) >= first) {
            out += std::to_string(place) + ":";
            for (const Field& field : sample.line(line)) {
                out += "[" + test::shown(field.view()) + "]";
            }
            out += "/";
        }
    }
    return out;
}

/// Without the lines.
std::string fields_of(const std::string& records) {
    std::string out;
    for (std::size_t at = 0; at < records.size(); at = records.find("]/", at) + 2) {
        out += records.substr(records.find(":[", at), records.find("]/", at) + 2 - records.find(":[", at));
    }
    return out;
}

const std::vector<std::size_t> small_chunks{1, 2, 3, 7, 30, 100};

std::vector<std::u16string> example_texts() {
    std::vector<std::u16string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(EXAMPLE_DATA)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        texts.push_back(utf8::decode(bytes).text);
    }
    return texts;
}

TEST(Reading, GivesTheSampleOfEachExampleFile) {
    const std::vector<std::u16string> texts = example_texts();
    ASSERT_GT(texts.size(), 20U);
    for (const std::u16string& text : texts) {
        SCOPED_TRACE(test::shown(text.substr(0, 200)));
        const parser::options options;
        const TypeOptions type_options;
        detection::StrategySelector selector(options, type_options);
        const auto picked = selector.pick_strategy(Field(text), SIZE_MAX);
        const advice::Advice advice = advice::advise(Field(text), SIZE_MAX);
        const advice::Proposal& best = advice.proposals.front();
        const std::string expected = from_sample(picked, text, picked->header_lines(), false);
        const std::string expected_of_best = from_sample(best.strategy, text, best.first_data_line, true);
        Reader whole(*picked, Field(text));
        EXPECT_EQ(shown_rest(whole), expected);
        Reader whole_of_best(best, Field(text));
        EXPECT_EQ(shown_rest(whole_of_best), expected_of_best);
        for (const std::size_t chunk : {1U, 17U, 500U, 0x8000U}) {
            ASSERT_EQ(read_on(*picked, text, chunk), expected) << chunk;
            ASSERT_EQ(read_on(best, text, chunk), expected_of_best) << chunk;
        }
    }
}

using MakeLayout = std::shared_ptr<GenericStrategy> (*)(const parser::options&);

std::shared_ptr<GenericStrategy> by_comma(const parser::options& options) {
    return std::make_shared<DelimitedStrategy>(options, TypeOptions(), u',');
}
std::shared_ptr<GenericStrategy> by_two_units(const parser::options& options) {
    return std::make_shared<DelimitedStrategy>(options, TypeOptions(), std::vector<std::u16string>{u"::", u";"});
}
std::shared_ptr<GenericStrategy> aligned(const parser::options& options) {
    return std::make_shared<SpaceAlignedStrategy>(options, TypeOptions());
}
std::shared_ptr<GenericStrategy> by_widths(const parser::options& options) {
    return std::make_shared<FixedWidthStrategy>(options, TypeOptions(), std::vector<std::size_t>{3, 1, 4});
}
std::shared_ptr<GenericStrategy> line_by_line(const parser::options& options) {
    return std::make_shared<LineReaderStrategy>(options, TypeOptions());
}

struct LayoutCase {
    const char* name;
    parser::options options;
    bool tells_lines = true; ///< nothing else than quotes takes up lines that no sample has
};

using namespace parser;
const std::vector<LayoutCase> layout_cases{
    {"as usual", {}},
    {"no comments, other quote", {.comment_style = {}, .quote = u'\''}},
    {"block comments", {.comment_style = {u"/*", u"*/"}}},
    {"runs merged", {.consecutive_delimiters_rule = consecutive_delimiters::merge}},
    {"edges left out",
     {.leading_delimiters_rule = leading_delimiters::skip, .trailing_delimiters_rule = trailing_delimiters::drop}},
    {"edges left out around blocks",
     {.comment_style = {u"/*", u"*/"},
      .leading_delimiters_rule = leading_delimiters::skip,
      .trailing_delimiters_rule = trailing_delimiters::drop}},
    {"a closer that ends lines", {.comment_style = {u"#", u"*\n"}}, false},
    {"long line endings", {.line_endings = {u"\n", u"\r\r\n", u"a::b"}}},
    {"line endings that are blanks", {.whitespace = u" \n"}, false},
    {"delimiters that end lines", {.line_endings = {u",", u"\n"}, .leading_delimiters_rule = leading_delimiters::skip}, false},
    {"no line endings", {.line_endings = {}}},
};

std::u16string random_text(std::mt19937& random) {
    static const std::vector<std::u16string> pieces{
        u"a",      u"bc",    u"1234", u" ",          u"  ",       u",",       u",,",         u";",   u"::",
        u":",      u"\"",    u"'",    u"\"x\"\"y\"", u"\"p\nq\"", u"\n",      u"\r\n",       u"\r",  u"\n\n",
        u"\r\r\n", u"# c\n", u"#",    u"/*",         u"*/",       u"/* c */", u"/* d\ne */", u"*\n", u"\t"};
    std::u16string text;
    for (std::size_t count = random() % 40; count > 0; --count) {
        const std::size_t piece = random() % (pieces.size() + 8);
        text += piece < pieces.size() ? pieces[piece] : piece % 2 == 0 ? u"w,z\n" : u"7 8\n";
    }
    if (random() % 20 == 0) {
        text.insert(random() % (text.size() + 1), 1, end_of_text);
    }
    return text;
}

TEST(Reading, GivesTheSampleOfRandomTexts) {
    std::mt19937 random(7);
    for (int round = 0; round < 40; ++round) {
        for (const LayoutCase& c : layout_cases) {
            for (const MakeLayout make : {by_comma, by_two_units, aligned, by_widths, line_by_line}) {
                const std::u16string text = random_text(random);
                const auto layout = make(c.options);
                layout->header_lines(random() % 4 == 0 ? random() % 5 : 0);
                const std::string expected = from_sample(layout, text, layout->header_lines(), false);
                for (const std::size_t chunk : small_chunks) {
                    const std::string records = read_on(*layout, text, chunk, 2 + chunk);
                    ASSERT_EQ(c.tells_lines ? records : fields_of(records), c.tells_lines ? expected : fields_of(expected))
                        << c.name << ", layout " << static_cast<int>(layout->mode()) << ", chunk " << chunk << ": "
                        << test::shown(text);
                }
            }
        }
    }
}

struct FaultCase {
    const char* name;
    std::u16string text;
    Policy policy;
    std::string told; ///< what is told and what is given, in turn, and how it ends
    MakeLayout layout = by_comma;
    parser::options options{};
    std::size_t fields = 3;
};

const char* const uneven_name = "short, long and blank lines";
const std::u16string uneven = u"a,b,c\nd\n\n# e\ne,f,g,h\ni,,\n";

const std::vector<FaultCase> fault_cases{
    {uneven_name, uneven, Policy::keep,
     "[a][b][c] (few, line 1: 1 of 3)![d] (many, line 4: 4 of 3)![e][f][g][h] [i][][] of text"},
    {uneven_name, uneven, Policy::pad,
     "[a][b][c] (few, line 1: 1 of 3)![d][][] (many, line 4: 4 of 3)![e][f][g][h] [i][][] of text"},
    {uneven_name, uneven, Policy::skip, "[a][b][c] (few, line 1: 1 of 3)(many, line 4: 4 of 3)[i][][] of text"},
    {uneven_name, uneven, Policy::stop, "[a][b][c] (few, line 1: 1 of 3)stopped"},
    {"as many as the first", u"a,b\nc\nd,e\n", Policy::keep, "[a][b] (few, line 1: 1 of 2)![c] [d][e] of text", by_comma, {}, 0},
    {"an open quote", u"a,b,c\nd,e,\"f\nmore", Policy::keep, "[a][b][c] (open, line 1: 3 of 3)![d][e][\"f\\nmore] of text"},
    {"an open quote in a short record", u"a, \"b\"\"\n", Policy::pad, "(open, line 0: 2 of 3)![a][ \"b\"\"\\n][] of text"},
    {"a closed quote at the end", u"a,b, \"c\"\"\"", Policy::stop, "[a][b][ \"c\"\"\"] of text"},
    {"an open quote under another quote", u"a,b,\"c", Policy::stop, "[a][b][\"c] of text", by_comma, {.quote = u'\''}},
    {"lines inside quotes count", u"\"a\n\nb\",c,d\ne\n", Policy::keep, "[\"a\\n\\nb\"][c][d] (few, line 3: 1 of 3)![e] of text"},
    {"a mark", u"a,b,c\n\xFFFF\nd,e,f", Policy::keep, "[a][b][c] at mark"},
    {"widths: lines may end early, not late", u"aaabcccc\naaab\r\naaabcccc  \naaabccccd \r\naaa", Policy::pad,
     "[aaa][b][cccc] [aaa][b][] [aaa][b][cccc] (many, line 3: 4 of 3)![aaa][b][cccc] [aaa][][] of text", by_widths},
    {"dropped delimiters leave nothing",
     u"a,b,,\nc,d,e\nf,,,,\n",
     Policy::stop,
     "[a][b] [c][d][e] [f] of text",
     by_comma,
     {.trailing_delimiters_rule = trailing_delimiters::drop}},
    {"between blanks something is missing", u"a b c\nd e \n", Policy::skip, "[a][b][c] (few, line 1: 2 of 3)of text", aligned},
    {"an open quote between blanks", u"a b 'c\n", Policy::skip, "(open, line 0: 3 of 3)of text", aligned, {.quote = u'\''}},
    {"lines have no faults", u"a\n\"b\n", Policy::stop, "[a] [\"b] of text", line_by_line, {}, 0},
    {"a long record", u"a,b,c\nd,e," + std::u16string(200, u'f') + u"\ng,h,i\n", Policy::keep,
     "[a][b][c] (long, line 1: 0 of 3)too long"},
    {"a long comment", u"a,b,c\n#" + std::u16string(200, u'd') + u"\ng,h,i\n", Policy::keep,
     "[a][b][c] (long, line 1: 0 of 3)too long"},
    {"many comments", u"#d\n#e\n#ff\n\n#ggg\n#d\n#e\n#ff\n\n#ggg\n#d\n#e\n#ff\n\n#ggg\na,b,c\n", Policy::keep,
     "[a][b][c] of text"},
    {"many block comments",
     u"(d)\n(e)\n(f\n)\n(g\n\nh)a,b,c\n(d)\n(e)\n(f\n)(i)\n(j)(d)\n(e)\n(f\n)\n(i)\n(j)k,l\n",
     Policy::keep,
     "[a][b][c] (few, line 10: 1 of 3)![(i)] (few, line 11: 1 of 3)![(d)] (few, line 16: 2 of 3)![k][l] of text",
     by_comma,
     {.comment_style = {u"(", u")"}}},
};

TEST(Reading, TellsRecordsWithFaults) {
    static const char* const faults[] = {"", "few", "many", "open", "long"};
    static const char* const ends[] = {"not yet", "of text", "at mark", "stopped", "too long"};
    for (const FaultCase& c : fault_cases) {
        for (const std::size_t chunk : {1U, 5U, 20U}) {
            std::string told;
            reading::Settings settings{.policy = c.policy, .fields = c.fields, .chunk_units = chunk, .longest_record = 64};
            settings.tell = [&told](const reading::Irregular& record) {
                told += std::string("(") + faults[static_cast<int>(record.fault)] + ", line " + std::to_string(record.line) +
                        ": " + std::to_string(record.found) + " of " + std::to_string(record.expected) + ")";
            };
            Delivered source(c.text);
            TextStream stream(source);
            Reader reader(*c.layout(c.options), stream, settings);
            while (reader.next()) {
                told += reader.fault() == Fault::none ? "" : "!";
                for (const Field& field : reader.fields()) {
                    told += "[" + test::shown(field.view()) + "]";
                }
                told += " ";
            }
            told += ends[static_cast<int>(reader.end())];
            EXPECT_EQ(told, c.told) << c.name << ", chunk " << chunk;
            EXPECT_FALSE(reader.next());
        }
    }
}

TEST(Reading, NeedsTheSameMemoryForAnyText) {
    std::u16string text;
    for (int row = 0; row < 200'000; ++row) {
        text += u"# a\n12,\"3\n4\",56\n";
    }
    Delivered source(text);
    TextStream stream(source);
    Reader reader(*by_comma({}), stream, {.policy = Policy::stop, .fields = 3, .chunk_units = 5000});
    std::ptrdiff_t most = 0;
    std::size_t rows = 0;
    for (; reader.next(); ++rows) {
        most = std::max(most, stream.data_end - stream.buffer_begin);
        ASSERT_EQ(reader.line(), 3 * rows + 1);
    }
    EXPECT_EQ(rows, 200'000U);
    EXPECT_LT(most, 10'000);
}

TEST(Reading, GoesOnBehindARecordThatCouldNotBeTold) {
    const std::u16string text = u"a\nb,c\nd,e,f\n";
    reading::Settings settings{.fields = 2};
    settings.tell = [](const reading::Irregular&) { throw Failure(); };
    Reader reader(*by_comma({}), Field(text), settings);
    EXPECT_THROW(reader.next(), Failure);
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(test::shown(reader.fields().back().view()), "c");
    EXPECT_THROW(reader.next(), Failure);
    EXPECT_FALSE(reader.next());
}

struct ValueCase {
    const char* name;
    std::u16string cell;
    std::u16string value;
    bool is_view = true;
    std::uint8_t reader = record_reader::delimited;
};

const std::vector<ValueCase> value_cases{
    {"nothing", u"", u""},
    {"blanks", u" \t", u""},
    {"blanks around", u" a b\t", u"a b"},
    {"quotes around", u" \" a\" ", u" a"},
    {"nothing in quotes", u"\"\"", u""},
    {"doubled quotes", u"\"\"\"a\"\"\"\"b\"", u"\"a\"\"b", false},
    {"text behind the quotes", u"\"a\"\"\"b\"\"", u"a\"b\"\"", false},
    {"an open quote", u"\"a", u"a"},
    {"an open quote behind a doubled one", u"\"a\"\"", u"a\"", false},
    {"a quote alone", u"\"", u""},
    {"quotes in the middle", u"a\"\"b\"", u"a\"\"b\""},
    {"a line: framed", u"\"a\"\"b\"", u"a\"b", false, record_reader::line},
    {"a line: not framed", u"\"a\" b ", u"\"a\" b", true, record_reader::line},
    {"a width: an open quote", u"\"a", u"\"a", true, record_reader::fixed_width},
};

TEST(Reading, GivesTheValuesOfCells) {
    for (const ValueCase& c : value_cases) {
        parser::options options;
        options.reader_kind = c.reader;
        std::u16string buffer = u"before";
        const std::u16string_view value = reading::cell_value(Field(c.cell), options, buffer);
        EXPECT_EQ(test::shown(value), test::shown(c.value)) << c.name;
        EXPECT_EQ(buffer == u"before", c.is_view) << c.name;
    }
}

} // namespace
