#include "reading/delivered.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

namespace {

using namespace textio;
using namespace parser;
using namespace test;
using reading::End;
using reading::Fault;
using reading::Policy;
using reading::Reader;
using zentor::io::text::stream::TextStream;

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

TEST(Reader, TellsRecordsWithFaults) {
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

TEST(Reader, NeedsTheSameMemoryForAnyText) {
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

TEST(Reader, GoesOnBehindARecordThatCouldNotBeTold) {
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

} // namespace
