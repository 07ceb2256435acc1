#include "parser/read_sample.hpp"
#include "reading/delivered.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace {

using namespace textio;
using reading::Reader;
using test::Delivered;
using test::Failure;
using zentor::io::text::stream::TextStream;
using TypeOptions = zentor::io::text::typedetection::TypeAnalyzerOptions;

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

/// The records without the numbers of their lines.
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

TEST(Batches, GivesTheSampleOfEachExampleFile) {
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

/// Where the window moves, another text stands where one was compared with a long string before.
TEST(Batches, SeeksLongStringsAnew) {
    const std::u16string long_string(64, u'a');
    const std::vector<parser::options> cases{
        {.line_endings = {u"\n", long_string}},
        {.comment_style = {long_string}},
        {.comment_style = {u"#", long_string}},
    };
    std::mt19937 random(7);
    for (std::size_t round = 0; round < 100; ++round) {
        std::u16string text;
        for (int count = 0; count < 30; ++count) {
            text.append(random() % 130, u"aab"[random() % 3]).append(1, u",b\n#"[random() % 4]);
        }
        for (const parser::options& options : cases) {
            const std::vector<std::shared_ptr<GenericStrategy>> layouts{
                test::by_comma(options), test::by_widths(options), test::line_by_line(options),
                std::make_shared<DelimitedStrategy>(options, TypeOptions(), std::vector<std::u16string>{long_string})};
            for (const auto& layout : layouts) {
                layout->header_lines(round % 3);
                const std::string expected = from_sample(layout, text, layout->header_lines(), false);
                for (const std::size_t chunk : {1U, 40U, 150U, 600U}) {
                    ASSERT_EQ(fields_of(read_on(*layout, text, chunk)), fields_of(expected))
                        << "layout " << static_cast<int>(layout->mode()) << ", chunk " << chunk << ": " << test::shown(text);
                }
            }
        }
    }
}

TEST(Batches, GivesTheSampleOfRandomTexts) {
    std::mt19937 random(7);
    for (int round = 0; round < 40; ++round) {
        for (const LayoutCase& c : layout_cases) {
            for (const test::MakeLayout make :
                 {test::by_comma, test::by_two_units, test::aligned, test::by_widths, test::line_by_line}) {
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

} // namespace
