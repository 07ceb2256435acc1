// Runs of rows, heads of tables, comments, and the signs that lines suggest.
#include "advice/comments.hpp"
#include "advice/heading.hpp"
#include "advice/name_words.hpp"
#include "advice/numbers_as_names.hpp"
#include "advice/regular_run.hpp"
#include "advice/separators.hpp"
#include "advice/survey.hpp"
#include "advice/tagged_records.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using namespace textio::advice;
using test::shown;
using textio::Field;
using textio::FieldArray;

/// A sample of one field a line; the text must outlive it.
FieldArray lines_of(std::u16string_view text) {
    FieldArray lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u'\n'), text.size());
        const Field line(text.substr(0, end));
        if (end == 0) {
            lines.add_empty_line();
        } else {
            lines.add_line(&line, &line + 1, 1);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// A sample with rows of so many fields.
FieldArray sample_of(const std::vector<std::size_t>& widths) {
    FieldArray sample;
    for (const std::size_t width : widths) {
        const std::vector<Field> fields(width);
        sample.add_line(fields.data(), fields.data() + width, width);
    }
    return sample;
}

/// The most that a run of one width can sum up to, found by trying all.
int best_sum(const std::vector<std::size_t>& widths, bool last_is_optional) {
    int best = 0;
    for (std::size_t width = 2; width <= 5; ++width) {
        for (std::size_t first = 0; first < widths.size(); ++first) {
            int sum = 0;
            for (std::size_t line = first; line < widths.size() && widths[first] == width; ++line) {
                const bool lacks_last = last_is_optional && width > 2 && widths[line] + 1 == width;
                sum += widths[line] == 0 || lacks_last ? 0 : widths[line] == width ? 1 : -2;
                best = std::max(best, sum);
            }
        }
    }
    return best;
}

TEST(RegularRun, IsTheBestOfAll) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::size_t> widths(random() % 24);
        std::generate(widths.begin(), widths.end(), [&] { return random() % 3 == 0 ? random() % 6 : 3; });
        const bool last_is_optional = round % 2 == 0;
        const RegularRun run = find_regular_run(sample_of(widths), last_is_optional);
        const auto rows = [&](std::size_t first, std::size_t end, auto property) {
            return static_cast<std::size_t>(std::count_if(widths.begin() + static_cast<std::ptrdiff_t>(first),
                                                          widths.begin() + static_cast<std::ptrdiff_t>(end), property));
        };
        const auto is_row = [](std::size_t width) { return width != 0; };
        std::string told;
        for (const std::size_t width : widths) {
            told += std::to_string(width);
        }
        ASSERT_EQ(run.all, rows(0, widths.size(), is_row)) << told;
        const int best = best_sum(widths, last_is_optional);
        ASSERT_EQ(run.width == 0, best == 0) << told;
        if (best == 0) {
            continue;
        }
        const std::size_t end = run.last_line + 1;
        ASSERT_EQ(run.kept, rows(run.first_line, end, [&](std::size_t width) { return width == run.width; })) << told;
        ASSERT_EQ(run.rows, rows(run.first_line, end, is_row)) << told;
        ASSERT_EQ(run.behind, rows(end, widths.size(), is_row)) << told;
        const auto off = static_cast<int>(run.rows - run.kept - run.short_rows);
        ASSERT_EQ(static_cast<int>(run.kept) - 2 * off, best) << told;
        ASSERT_LE(run.coverage(), 1) << told;
        ASSERT_LE(run.consistency(), 1) << told;
    }
}

TEST(RegularRun, LastRunEndsWithTheText) {
    const RegularRun run = find_last_run(sample_of({4, 4, 1, 3, 0, 3, 3, 0}));
    EXPECT_EQ(run.width, 3U);
    EXPECT_EQ(run.first_line, 3U);
    EXPECT_EQ(run.last_line, 6U);
    EXPECT_EQ(run.kept, 3U);
    EXPECT_EQ(run.all, 6U);
    EXPECT_EQ(find_last_run(sample_of({})).width, 0U);
}

TEST(Heading, WordsAndRulersShowWhereColumnsStart) {
    using Starts = std::vector<std::size_t>;
    EXPECT_EQ(heading_starts(u"name   left side  x"), (Starts{0, 7, 18}));
    EXPECT_EQ(heading_starts(u"  a b\t\tc"), (Starts{2, 7}));
    EXPECT_EQ(heading_starts(u"|a   |b |  "), (Starts{0, 5}));
    EXPECT_EQ(heading_starts(u"a|b  c|d"), (Starts{0, 5}));
    EXPECT_EQ(heading_starts(u"   "), Starts{});
    EXPECT_EQ(ruler_starts(u"--- ====  _"), (Starts{0, 4, 10}));
    EXPECT_EQ(ruler_starts(u"+--+--"), (Starts{1, 4}));
    EXPECT_EQ(heading_words(u"a b  c", 1).size(), 3U);
    EXPECT_EQ(heading_words(u"a b  c", 2).size(), 2U);
    EXPECT_EQ(heading_words(u" ab", 2).front().end, 3U);
}

struct OpenerCase {
    const char* name;
    std::u16string_view text;
    std::u16string_view opener;
};

TEST(Comments, AreOpenedByTheSignThatBeginsMostLines) {
    const OpenerCase cases[] = {
        {"none", u"a\nb\n", u""},
        {"one line anywhere", u"1\n2\n# x\n3\n", u"#"},
        {"blanks in front", u"1\n  # x\n2\n", u"#"},
        {"all lines, which would leave nothing", u"# a\n# b\n", u""},
        {"one line of another sign, not the first", u"1\n! x\n2\n3\n", u""},
        {"the first line of another sign", u"! x\n1\n2\n3\n", u"!"},
        {"two lines of another sign", u"1\n% x\n% y\n2\n3\n4\n", u"%"},
        {"rulers", u"a\n-----\n1\n-----\n2\n", u""},
        {"options, no comments", u"--all\n--long\nx\ny\nz\n", u""},
        {"dashes before words", u"-- all\n-- long\nx\ny\nz\n", u"--"},
        {"the commoner of two", u"# a\n% b\n% c\n% d\n1\n2\n3\n4\n5\n", u"%"},
        {"nearly all lines", u"! a\n! b\n! c\n! d\n! e\n1\n", u""},
    };
    const std::vector<std::u16string> openers{u"#", u"%", u"!", u"--", u""};
    for (const OpenerCase& c : cases) {
        EXPECT_EQ(shown(choose_comment_opener(lines_of(c.text), openers)), shown(c.opener)) << c.name;
    }
}

TEST(Comments, StandAroundATable) {
    const std::vector<std::u16string> numbers{u"#"};
    const FieldArray above = lines_of(u"# x\na\n1\n2\n");
    EXPECT_TRUE(are_comments(above, numbers, 1, 2));
    EXPECT_TRUE(are_comments(above, numbers, 0, 1)) << "names may be a comment";
    EXPECT_FALSE(are_comments(above, {}, 1, 2));
    EXPECT_FALSE(are_comments(lines_of(u"title\n# x\na\n1\n"), numbers, 2, 3)) << "other lines stand there too";
    EXPECT_TRUE(are_comments(lines_of(u"title\na\n1\n# x\n2\n"), numbers, 1, 2));
    const std::vector<std::u16string> blocks{u"/*", u"*/"};
    EXPECT_TRUE(are_comments(lines_of(u"/* x\ny\nz */\na\n1\n2\n"), blocks, 3, 4)) << "lines inside are comments, too";
    EXPECT_FALSE(are_comments(lines_of(u"/* x */\ny\na\n1\n2\n"), blocks, 2, 3)) << "lines behind are not";
}

TEST(Comments, MayRunOverLines) {
    const std::pair<std::u16string_view, bool> cases[] = {
        {u"/* x */\n1\n", true},
        {u"1\n  /* x\n\n * y\n */ \n2\n", true},
        {u"/**/\n1\n", true},
        {u"/* x\n1\n2\n", false},
        {u"/* x */ 1\n2\n", false},
        {u"/*/\n1\n2\n", false},
        {u"1 /* x */\n2\n", false},
        {u"/* x\ny */\n", false},
        {u"", false},
        {u"/* x */\n1\n/* y\n", false},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(has_block_comments(lines_of(text)), expected) << shown(text);
    }
}

TEST(Separators, AreTheSignsOnManyLines) {
    const std::pair<std::u16string, std::u16string> cases[] = {
        {u"a;b\nc;d\n", u";"},
        {u"a||b\nc||d\n", u"||"},
        {u"a::b\nc::d\n", u"::"},
        {u"1:2\n3:4\n", u":"},
        {u"ab\ncd\n", u""},
        {u"(a) - b\n(c) - d\n", u""},
        {u"a\u2192b\nc\u2192d\n", u"\u2192"},
        {u"\u00E4\u00F6\n\u00E4\u00F6\n", u""},
        {u"a|||b||||||c\nd|||e||||||f\n", u"|||"},
    };
    for (const auto& [text, expected] : cases) {
        const FieldArray lines = lines_of(text);
        const auto found = suggested_separators(survey_lines(lines));
        EXPECT_EQ(shown(found.empty() ? u"" : found.front().text), shown(expected)) << shown(text);
    }
}

TEST(Separators, QuotesFrameFields) {
    const FieldArray lines = lines_of(u"'a';'b'\n'c';'d'\nit's;so\n");
    const Survey survey = survey_lines(lines);
    EXPECT_TRUE(frames_fields(survey, u'\'', u";"));
    EXPECT_FALSE(frames_fields(survey, u'"', u";"));
    EXPECT_FALSE(frames_fields(survey, u';', u";"));
}

TEST(Records, AreToldByTheirCodes) {
    const auto records = [](std::vector<std::u16string_view> tags) {
        FieldArray sample;
        for (const std::u16string_view tag : tags) {
            const Field fields[] = {Field(tag), Field(u"1")};
            sample.add_line(fields, fields + 2, 2);
        }
        CellMemory memory({}, nullptr);
        CellJudge judge(memory, u'"');
        return find_tagged_records(sample, judge);
    };
    EXPECT_TRUE(records({u"HD", u"PO", u"PO", u"NT", u"PO", u"PO"}).are_records(false));
    EXPECT_FALSE(records({u"HD", u"PO", u"NT", u"ND"}).are_records(false)) << "no code comes again";
    EXPECT_TRUE(records({u"HD", u"PO", u"NT", u"ND"}).are_records(true));
    EXPECT_FALSE(records({u"PO", u"PO", u"PO", u"PO"}).are_records(true)) << "one kind is a table";
    EXPECT_FALSE(records({u"hd", u"po", u"A", u"ABCDE", u"1A"}).are_records(true)) << "these are no codes";
    EXPECT_TRUE(lines_end_alike(lines_of(u"a'\nb' \nc'\n")));
    EXPECT_FALSE(lines_end_alike(lines_of(u"a.\nb.\nc.\n")));
    EXPECT_FALSE(lines_end_alike(lines_of(u"a'\nb'\nc;\n")));
}

TEST(Names, DifferFromTheValuesBelow) {
    struct Case {
        const char* name;
        std::vector<std::u16string_view> row;
        std::vector<std::u16string_view> cells;
        bool expected;
    };
    const std::vector<std::u16string_view> names = {u"name", u"city"};
    const Case cases[] = {
        {"a row that is among those below", names, {names[0], names[1], u"Bo", u"Chur", u"Cy", u"Genf"}, true},
        {"usual names", {u"name", u"city"}, {u"Ada", u"Bern", u"Bo", u"Chur", u"Cy", u"Genf"}, true},
        {"values", {u"Ada", u"Bern"}, {u"Bo", u"Chur", u"Cy", u"Genf", u"Dee", u"Thun"}, false},
        {"twice the same", {u"name", u"name"}, {u"Ada", u"Bern", u"Bo", u"Chur", u"Cy", u"Genf"}, false},
        {"codes", {u"A-7", u"B-1"}, {u"A-8", u"B-2", u"C-9", u"D-3", u"C-9", u"D-4"}, false},
        {"words over codes", {u"part", u"place"}, {u"A-8", u"B-2", u"C-9", u"D-3", u"C-7", u"D-4"}, true},
        {"a value that comes again", {u"name", u"Bern"}, {u"Ada", u"bern", u"Bo", u"bern", u"Cy", u"bern"}, false},
        {"a word over codes beside one", {u"code", u"Bern"}, {u"A-81", u"bern", u"B-92", u"chur", u"C-73", u"genf"}, true},
        {"a text over texts with a digit",
         {u"Mill Road", u"Bern"},
         {u"Lane 2", u"bern", u"Road 7", u"chur", u"Hill 5", u"genf"},
         false},
        {"no rows", {u"name", u"city"}, {}, false},
        {"a column more than the grid has", {u"name", u"city", u""}, {u"Ada", u"Bern", u"Bo", u"Chur", u"Cy", u"Genf"}, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(names_text_columns(c.row, {2, c.cells}), c.expected) << c.name;
    }
    EXPECT_TRUE(names_by_numbers({u"land", u"2019", u"2020"}, {3, {u"CH", u"1.5", u"2.5"}}));
    EXPECT_FALSE(names_by_numbers({u"land", u"2019", u"2020"}, {3, {u"CH", u"2019", u"2.5"}}));
    EXPECT_FALSE(names_by_numbers({u"land", u"2019", u"x", u"y"}, {4, {u"CH", u"1", u"2", u"3"}}));
    EXPECT_TRUE(names_by_numbers({u"land", u"2019", u"2020", u"2021"}, {3, {u"CH", u"1", u"2"}}));
}

} // namespace
