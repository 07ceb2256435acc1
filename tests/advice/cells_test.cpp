// What is seen in single cells: numbers with either mark, kinds of values, marks of a whole table.
#include "advice/cell_kind.hpp"
#include "advice/name_words.hpp"
#include "advice/number_marks.hpp"
#include "advice/number_shape.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace textio::advice;
using test::shown;

TEST(Cells, NumbersHaveEitherMark) {
    for (const char16_t* text :
         {u"1",      u"-1",        u"+12",       u"1.5",     u"1,5",     u".5",           u",5",  u"5.",       u"1,234",
          u"1.234",  u"1,234,567", u"1.234.567", u"1,234.5", u"1.234,5", u"1,234,567.89", u"1e5", u"1.5E-3",   u"2,5d+10",
          u"$12.50", u"-\u20AC7",  u"<0.05",     u">3",      u"12%",     u"1.5e3%",       u"007", u"12345,678"}) {
        EXPECT_TRUE(looks_like_number(text)) << shown(text);
    }
    for (const char16_t* text : {u"",          u"-",        u".",        u",",       u"-.",           u"$",        u"%",
                                 u"e5",        u"1e",       u"1e+",      u"1 2",     u" 1",           u"1 ",       u"1..5",
                                 u"1,,5",      u"1.5.2",    u"1,23,456", u"12,34,5", u"1234,567,890", u",123,456", u"1.234,5.6",
                                 u"1,234.5,6", u"1.2.2024", u"12:30",    u"1-2",     u"0x1F",         u"1a",       u"a1",
                                 u"--1",       u"1%%",      u"1$"}) {
        EXPECT_FALSE(looks_like_number(text)) << shown(text);
    }
}

TEST(Cells, MarksAreThoseOfAllNumbersTogether) {
    struct Case {
        std::vector<std::u16string> numbers;
        std::u16string marks; ///< decimal mark and thousands separator, `?` for none
    };
    const Case cases[] = {
        {{}, u"??"},
        {{u"1", u"22", u"1e5"}, u"??"},
        {{u"1.5"}, u".?"},
        {{u"1,5"}, u",?"},
        {{u"0.123"}, u".?"},                     // no group begins with a 0
        {{u"0,123"}, u",?"},                     //
        {{u"1.234"}, u".?"},                     // more often a decimal point than not
        {{u"1,234"}, u"?,"},                     //
        {{u"1,234", u"2,5"}, u",?"},             // one number tells of the others
        {{u"1.234", u"2,5"}, u",."},             //
        {{u"1,234", u"2.5"}, u".,"},             //
        {{u"1.234.567"}, u"?."},                 //
        {{u"1,234,567", u"1.5"}, u".,"},         //
        {{u"1.234.567,8"}, u",."},               //
        {{u"-1.234,5", u"+2.345,6"}, u",."},     // signs belong to no group
        {{u"1234,567"}, u",?"},                  // four digits are no group
        {{u"1.5", u"2.5", u"3,5"}, u".?"},       // most decide
        {{u"1.5", u"2,5"}, u"??"},               // and nothing where they are as many
        {{u"1,234", u"1.234", u"5.678"}, u"?,"}, //
    };
    for (const Case& c : cases) {
        NumberMarks marks;
        std::u16string all;
        for (const auto& number : c.numbers) {
            marks.add(number);
            all += number + u" ";
        }
        std::u16string found{marks.decimal_mark(), marks.thousands_separator()};
        std::replace(found.begin(), found.end(), u'\0', u'?');
        EXPECT_EQ(shown(found), shown(c.marks)) << shown(all);
    }
}

TEST(Cells, NumbersOfAColumnTellTogetherWhatAMarkIs) {
    struct Case {
        std::vector<const char16_t*> column;
        std::u16string marks;
    };
    const Case cases[] = {
        {{u"1.234", u"12", u"-999", u"5.678"}, u"?."},
        {{u"1,234", u"+12", u"7"}, u"?,"},
        {{u"1.234", u"12", u"5.678"}, u".?"},             // one could be a gap in the decimals
        {{u"1.234", u"12", u"1999", u"7"}, u".?"},        // which would have a group as well
        {{u"1.234", u"12", u"0", u"007", u"1e3"}, u".?"}, // these tell nothing
        {{u"1.234", u"12", u"7", u"1.5"}, u".?"},         //
        {{u"1.234", u"12", u"7", u"1.234,5"}, u",."},     //
    };
    for (const Case& c : cases) {
        NumberMarks table;
        NumberMarks column;
        for (const char16_t* number : c.column) {
            table.add(number);
            column.add(number);
        }
        table.add_together(column);
        std::u16string found{table.decimal_mark(), table.thousands_separator()};
        std::replace(found.begin(), found.end(), u'\0', u'?');
        EXPECT_EQ(shown(found), shown(c.marks)) << shown(c.column.front());
    }
}

TEST(Cells, KindsShowWhereACutIsWrong) {
    const std::pair<CellKind, std::vector<const char16_t*>> kinds[] = {
        {CellKind::missing, {u"", u"  ", u"NA", u"n/a", u"NULL", u"-", u"---", u"?", u"\\N", u"(null)", u" n.a. "}},
        {CellKind::number, {u"1", u" 1,5 ", u"\t2.5e3", u"12%", u"1.234,5"}},
        {CellKind::date, {u"2024-01-31", u"31.12.2023", u"06:18:51", u"2024-03-09T06:18:51Z", u"12:30"}},
        {CellKind::quoted, {u"\"\"", u"\"a;b\"", u" \"1\" ", u"\"a \"\"b\"\"\""}},
        {CellKind::word, {u"word", u"A-7", u"x_1", u"----", u"a.b", u"99-99-9999", u"word,"}},
        {CellKind::words, {u"two words", u"bolt, hex", u"7 Main Road", u"it's so"}},
        {CellKind::separated, {u"a;b", u"a|b", u"a\tb", u"a,b", u"1 2 3", u"12\" pipe"}},
        {CellKind::gap, {u"a   b", u"1    2"}},
        {CellKind::broken, {u"\"", u"\"open", u"\"open\" and", u";", u",,", u"|;", u":"}},
    };
    CellMemory memory({}, nullptr);
    for (const auto& [kind, texts] : kinds) {
        CellJudge judge(memory, u'"');
        for (const std::u16string_view text : texts) {
            EXPECT_EQ(static_cast<int>(judge.judge(text)), static_cast<int>(kind)) << shown(text);
        }
    }
    const std::u16string_view open = u"\"open";
    CellJudge without_quotes(memory, 0);
    EXPECT_EQ(without_quotes.judge(open), CellKind::word);
    EXPECT_EQ(CellJudge(memory, u'"').judge(open), CellKind::broken) << "and was another kind without quotes";
    EXPECT_EQ(CellJudge(memory, u'"').judge(open.substr(0, 1)), CellKind::broken);
    EXPECT_EQ(without_quotes.judge(open.substr(1, 2)), CellKind::word);
    EXPECT_EQ(without_quotes.judge(std::u16string_view(u"\0a", 2)), CellKind::word);
}

TEST(Cells, AJudgeRemembersShapesNotAnswers) {
    // One after the other: a date must not lend its answer to a text of another shape.
    CellMemory memory({}, nullptr);
    CellJudge judge(memory, u'"');
    EXPECT_EQ(judge.judge(u"2024-01-31"), CellKind::date);
    EXPECT_EQ(judge.judge(u"2024-02-01"), CellKind::date);
    EXPECT_EQ(judge.judge(u"2024-0x-01"), CellKind::word);
    EXPECT_EQ(judge.judge(u"2024-01-3"), CellKind::date);
    EXPECT_EQ(judge.judge(u"12:30"), CellKind::date);
}

TEST(Cells, SentencesAndSingleValues) {
    for (const char16_t* text : {u"we went to the sea", u"The boat, it's said, was dry.", u"Dear all well met"}) {
        EXPECT_TRUE(reads_like_a_sentence(text)) << shown(text);
    }
    for (const char16_t* text : {u"", u"two words", u"Old Mill Road West", u"a  b c d", u"12 13 14 15", u"word word 1"}) {
        EXPECT_FALSE(reads_like_a_sentence(text)) << shown(text);
    }
    for (const char16_t* text : {u"https://a.example/x?y=1", u"http://b.example", u"ada.long@mail.example", u"a+b@c-d.example"}) {
        EXPECT_TRUE(is_single_value(text)) << shown(text);
    }
    for (const char16_t* text :
         {u"", u"word", u"@ada", u"https://a.example;7", u"http://a.example b", u"ada@mail.example, Ada"}) {
        EXPECT_FALSE(is_single_value(text)) << shown(text);
    }
}

TEST(Cells, BareTextsHaveNoQuotes) {
    EXPECT_EQ(bare(u" \" ab \" "), u"ab");
    EXPECT_EQ(bare(u"'ab'"), u"ab");
    EXPECT_EQ(bare(u"\"ab"), u"\"ab");
    EXPECT_EQ(bare(u"\""), u"\"");
    EXPECT_EQ(bare(u"~ab~"), u"~ab~");
    EXPECT_EQ(bare(u"~ab~", u'~'), u"ab");
    EXPECT_EQ(bare(std::u16string_view(u"\0ab\0", 4), 0).size(), 4U);
}

} // namespace
