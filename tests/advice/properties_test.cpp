// What a text may go through without its layout seeming another.
#include "advice/advising.hpp"
#include "advice/example_text.hpp"
#include "parser/reading.hpp"

#include <algorithm>

namespace {

using test::Proposal;
using test::shown;
using textio::enums::StrategyMode;

using Row = std::vector<std::u16string>;
using Table = std::vector<Row>;

/// Names and rows of numbers, dates, words and texts, different in each row.
Table sales() {
    const std::u16string shops[] = {u"East", u"West End", u"Old Mill", u"Harbour"};
    Table table{{u"no", u"day", u"shop", u"sum"}};
    for (int row = 1; row <= 12; ++row) {
        const auto digits = [](int number) { return std::u16string{char16_t(u'0' + number / 10), char16_t(u'0' + number % 10)}; };
        table.push_back({digits(row), u"2024-03-" + digits(row + 3), shops[row * 3 % 4],
                         digits(row * 7 % 90) + u"." + digits(row * 11 % 100)});
    }
    return table;
}

/// Text alone: the first row is told by its words.
Table people() {
    return {{u"first_name", u"town", u"role"}, {u"Ada", u"Bern", u"Cook"}, {u"Bo", u"Chur", u"Host"},
            {u"Cy", u"Bern", u"Cook"},         {u"Dee", u"Genf", u"Host"}, {u"Ed", u"Chur", u"Cook"},
            {u"Flo", u"Bern", u"Cook"},        {u"Gus", u"Genf", u"Host"}};
}

std::u16string joined(const Table& table, const std::u16string& delimiter) {
    std::u16string text;
    for (const Row& row : table) {
        for (const std::u16string& cell : row) {
            text += (&cell == row.data() ? u"" : delimiter) + cell;
        }
        text += u'\n';
    }
    return text;
}

/// Each cell padded to its column's width and two blanks more.
std::u16string padded(const Table& table) {
    std::u16string text;
    for (const Row& row : table) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            std::size_t width = 0;
            for (const Row& other : table) {
                width = std::max(width, other[column].size() + 2);
            }
            text += row[column] + std::u16string(width - row[column].size(), u' ');
        }
        text += u'\n';
    }
    return text;
}

/// Layout and number of columns, the widths left out.
std::string layout_of(const std::u16string& text) {
    const auto found = test::advice_on(text);
    const Proposal& best = found.proposals.front();
    const std::string columns = ", " + std::to_string(best.columns.size()) + " columns";
    return (best.strategy->mode() == StrategyMode::fixed_width ? "widths" : test::layout_of(best)) + columns;
}

const std::vector<std::u16string> delimiters{u",", u";", u"\t", u"|", u"^", u"~", u"\u001F", u"\u00A6", u"||", u"::"};

std::string by(const std::u16string& delimiter, std::size_t columns) {
    return "by '" + shown(delimiter) + "', " + std::to_string(columns) + " columns";
}

TEST(AdviseProperties, AnyDelimiterIsFound) {
    for (const Table& table : {sales(), people()}) {
        for (const auto& delimiter : delimiters) {
            const std::u16string text = joined(table, delimiter);
            EXPECT_EQ(layout_of(text), by(delimiter, table.front().size())) << shown(text);
        }
    }
}

TEST(AdviseProperties, OrderOfRowsMattersNot) {
    for (const Table& table : {sales(), people()}) {
        for (std::size_t shift = 0; shift + 2 < table.size(); ++shift) {
            Table other = table;
            std::rotate(other.begin() + 1, other.begin() + 1 + static_cast<std::ptrdiff_t>(shift), other.end());
            EXPECT_EQ(layout_of(joined(other, u";")), by(u";", table.front().size())) << shift;
            std::reverse(other.begin() + 1, other.end());
            EXPECT_EQ(layout_of(padded(other)), layout_of(padded(table))) << shift;
        }
    }
}

TEST(AdviseProperties, WhatStandsAroundATableMattersNot) {
    const std::u16string around[] = {u"Sales of March\n", u"Sales of March, all shops\nmade by hand\n\n",
                                     u"Source: the office; second run\n", u"# made by hand\n"};
    for (const Table& table : {sales(), people()}) {
        const std::size_t columns = table.front().size();
        for (const std::u16string& words : around) {
            for (const auto& delimiter : {delimiters[0], delimiters[1], delimiters[2], delimiters[3]}) {
                const std::u16string text = joined(table, delimiter);
                const std::string below = layout_of(text + words);
                EXPECT_EQ(below.substr(0, below.find(", comment")), by(delimiter, columns).substr(0, below.find(", comment")))
                    << shown(words);
                const auto found = test::advice_on(words + text);
                const auto lines = static_cast<std::size_t>(std::count(words.begin(), words.end(), u'\n'));
                EXPECT_EQ(found.proposals.front().first_data_line, lines + 1) << shown(words) << shown(text);
            }
        }
    }
}

TEST(AdviseProperties, WhatStandsBelowColumnsAtPositionsMattersNot) {
    const std::u16string text = padded(sales());
    for (const std::u16string words : {u"Sales of March\n", u"\nmade by hand, and checked twice by the office\n", u"---\n"}) {
        EXPECT_EQ(layout_of(text + words), "widths, 4 columns") << shown(words);
    }
}

TEST(AdviseProperties, AColumnWithoutValuesMattersNot) {
    for (const Table& table : {sales(), people()}) {
        const std::size_t columns = table.front().size();
        for (std::size_t column = 0; column < columns; ++column) {
            for (const std::u16string value : {u"", u"NA", u"-"}) {
                Table other = table;
                std::for_each(other.begin() + 1, other.end(), [&](Row& row) { row[column] = value; });
                const std::u16string text = joined(other, u",");
                const auto found = test::advice_on(text);
                const Proposal& best = found.proposals.front();
                EXPECT_EQ(test::layout_of(best), "by ','") << shown(text);
                EXPECT_EQ(best.columns.size(), columns) << shown(text);
                EXPECT_EQ(best.columns[column].missing, table.size() - 1) << shown(text);
            }
        }
    }
}

struct Example {
    const char* file;
    char16_t delimiter;
};

/// Files whose records are lines.
const Example examples[] = {
    {"broken_bytes.csv", u','}, {"pool_tickets.csv", u','}, {"race_blank_lines.csv", u';'},
    {"rechnungen.csv", u';'},   {"sequencing.tsv", u'\t'},  {"staff_crlf.csv", u','},
    {"stock.txt", u'|'},        {"switch_log.csv", u','},
};

TEST(AdviseProperties, ExamplesKeepTheirLayout) {
    for (const Example& example : examples) {
        const std::u16string text = test::example_text(example.file);
        const std::string expected = layout_of(text);
        EXPECT_EQ(layout_of(text + u"read by hand\nand checked\n"), expected) << example.file;
        EXPECT_EQ(layout_of(u"Read by hand\n" + text), expected) << example.file;

        std::vector<std::u16string> lines;
        for (std::size_t at = 0; at < text.size(); at += lines.back().size()) {
            lines.push_back(text.substr(at, std::min(text.find(u'\n', at), text.size() - 1) + 1 - at));
        }
        std::reverse(lines.begin() + 4, lines.end()); // names and what stands above them are never more
        std::u16string reversed;
        for (const std::u16string& line : lines) {
            reversed += line;
        }
        EXPECT_EQ(layout_of(reversed), expected) << example.file;

        for (const char16_t other : {u';', u'|', u'\t', u'^', u'\u001F'}) {
            if (text.find(other) == std::u16string::npos) {
                std::u16string rewritten = text;
                std::replace(rewritten.begin(), rewritten.end(), example.delimiter, other);
                const std::string columns = expected.substr(expected.find(", "));
                EXPECT_EQ(layout_of(rewritten), "by '" + shown(std::u16string(1, other)) + "'" + columns) << example.file;
            }
        }
    }
}

/// What a reader made from the options of a proposal reads.
std::string read_again(const Proposal& proposal, const std::u16string& text) {
    const textio::parser::options& options = proposal.strategy->options();
    const test::Request request{.rows = test::sample_rows};
    switch (proposal.strategy->mode()) {
    case StrategyMode::fixed_width:
        return test::reading_with(textio::parser::FixedWidthRecordReader(options), text, options, request);
    case StrategyMode::line_reader:
        return test::reading_with(textio::parser::LineRecordReader(options), text, options, request, false);
    default:
        return test::reading_with(textio::parser::DelimitedRecordReader(options), text, options, request, false);
    }
}

TEST(AdviseProperties, OptionsAreReadyForUse) {
    std::vector<std::u16string> texts{u"|id|name|\n|1|ab|\n|2|cd|\n|3|ef|\n", u"1;2;;;\n3;4;;;\n5;6;;;\n",
                                      u"~a~,~b,c~\n~d~,~e~\n~f~,~g~\n"};
    for (const auto& entry : std::filesystem::directory_iterator(EXAMPLE_DATA)) {
        texts.push_back(test::example_text(entry.path()));
    }
    for (const std::u16string& text : texts) {
        const auto found = test::advice_on(text);
        for (const Proposal& each : found.proposals) {
            const textio::FieldArray& sample = *each.strategy->field_array();
            const std::string expected = shown(sample);
            EXPECT_EQ(read_again(each, text).substr(0, expected.size()), expected) << test::layout_of(each);
        }
        // Records in quotes over several lines are fewer than lines of the text.
        const Proposal& best = found.proposals.front();
        const textio::FieldArray& sample = *best.strategy->field_array();
        const auto lines_of_text = static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n'));
        if (!found.is_table || sample.line_count() + 1 < lines_of_text) {
            continue;
        }
        std::size_t regular = 0;
        for (std::size_t line = best.first_data_line; line < sample.line_count(); ++line) {
            regular += sample.line(line).size() == best.columns.size() ? 1U : 0U;
        }
        EXPECT_GE(regular * 4, best.columns.front().values * 3) << shown(text);
    }
}

} // namespace
