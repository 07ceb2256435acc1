#include "textio/strategy.hpp"

#include "parser/read_sample.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <sstream>
#include <tuple>
#include <vector>

namespace {

using namespace textio;
using Types = zentor::io::text::typedetection::TypeAnalyzerOptions;

std::string layout(const GenericStrategy& strategy) {
    const parser::options& options = strategy.options();
    std::ostringstream out;
    out << int(strategy.mode()) << " kind " << int(options.reader_kind) << " rules " << int(options.consecutive_delimiters_rule)
        << int(options.empty_line_rule) << int(options.leading_delimiters_rule) << int(options.trailing_delimiters_rule)
        << int(options.partial_field_rule) << " blanks '" << test::shown(options.whitespace) << "' by '";
    for (const std::u16string& delimiter : options.delimiters) {
        out << test::shown(delimiter);
    }
    out << "' widths " << options.field_widths.size() << (options.detect_delimiters ? " d" : "")
        << (strategy.space_separated() ? " s" : "") << (strategy.auto_header_lines() ? " auto " : " ") << strategy.header_lines()
        << " rank " << strategy.valuation_record().prior_rank;
    return out.str();
}

TEST(Strategies, SetUpTheirLayouts) {
    // Every member that a layout may overwrite holds a value of its own.
    const parser::options options{.delimiters = {u";", u","},
                                  .whitespace = u" \t,;",
                                  .field_widths = {7},
                                  .header_lines = 5,
                                  .reader_kind = 9,
                                  .consecutive_delimiters_rule = 2,
                                  .empty_line_rule = 2,
                                  .leading_delimiters_rule = 2,
                                  .trailing_delimiters_rule = 2,
                                  .partial_field_rule = 5};
    const Types types;
    const std::vector<std::u16string> several{u"ab", u" "};
    std::vector<std::size_t> widths{1, 2, 3};
    EXPECT_EQ(layout(LineReaderStrategy(options, types)), "3 kind 3 rules 01025 blanks ' \\t,;' by ';,' widths 1 d 0 rank inf");
    EXPECT_EQ(layout(DelimitedStrategy(options, types)), "0 kind 0 rules 01005 blanks ' \\t' by ';,' widths 1 auto 5 rank inf");
    EXPECT_EQ(layout(DelimitedStrategy(options, types, several)),
              "0 kind 0 rules 01005 blanks '\\t,;' by 'ab ' widths 1 auto 5 rank inf");
    EXPECT_EQ(layout(DelimitedStrategy(options, types, u' ')),
              "0 kind 0 rules 01005 blanks '\\t,;' by ' ' widths 1 s auto 5 rank 3");
    EXPECT_EQ(layout(DelimitedStrategy(options, types, u':')),
              "0 kind 0 rules 01005 blanks ' \\t,;' by ':' widths 1 auto 5 rank 1.84467e+19");
    EXPECT_EQ(layout(SpaceAlignedStrategy(options, types)),
              "1 kind 0 rules 11115 blanks ',;' by ' \\t' widths 1 s auto 5 rank 3.5");
    EXPECT_EQ(layout(FixedWidthStrategy(options, types, std::move(widths))),
              "2 kind 1 rules 21220 blanks ' \\t,;' by ';,' widths 3 d auto 5 rank inf");
    EXPECT_TRUE(widths.empty());
}

TEST(Strategies, HeaderCountsAreFixedOrHandedBack) {
    const parser::options options{.detect_header_lines = false};
    DelimitedStrategy delimited(options, Types(), u',');
    EXPECT_FALSE(delimited.auto_header_lines());
    delimited.header_lines(SIZE_MAX);
    EXPECT_TRUE(delimited.auto_header_lines());
    delimited.header_lines(3);
    EXPECT_FALSE(delimited.auto_header_lines());
    EXPECT_EQ(delimited.header_lines(), 3U);
    LineReaderStrategy lines(options, Types());
    lines.header_lines(SIZE_MAX);
    EXPECT_EQ(lines.header_lines(), 0U);
    EXPECT_FALSE(lines.auto_header_lines());
}

constexpr double inf = std::numeric_limits<double>::infinity();

/// Classified columns, and of them: temporal, numeric, datetime, punctuation.
using Classes = std::array<std::uint32_t, 5>;

/// Header lines, variation of all lines and of the data, lines, median, variables, classes.
using Figures = std::tuple<std::size_t, double, double, std::size_t, int, std::size_t, Classes>;

struct ValuationCase {
    const char* name;
    std::u16string text;
    std::size_t header_lines; ///< as given; SIZE_MAX is undecided
    bool detect;
    Figures expected;
};

TEST(Valuation, TakesEachWay) {
    const std::u16string five = u"1,2,3,4,5\n";
    const std::u16string five_and_twelve = five + five + five + u"1\n1\n" + five + u"1,2,3,4,5,6,7,8,9,0,1,2\n" + five;
    const std::vector<ValuationCase> cases{
        {"no lines, detected", u"\n\n", SIZE_MAX, true, {0, inf, inf, 0, 1, 1, {}}},
        {"no lines, given", u"\n", 4, false, {4, inf, inf, 0, 1, 1, {}}},
        {"one field each, detected", u"a\nb\n1\n", 2, true, {0, inf, inf, 3, 1, 1, {}}},
        {"one field each, given", u"a\nb\n1\n\n", 1, false, {1, inf, inf, 3, 1, 1, {1, 0, 1, 0, 0}}},
        {"few wide lines", u"t\na,b\n\n1\n2\n3\n4\n5\n6\n7\n8\n9\n0\n", SIZE_MAX, true, {1, inf, inf, 13, 1, 1, {1, 0, 1, 0, 0}}},
        {"regular", u"1,a\n2,b\n\n3,12:30\n\n\n", SIZE_MAX, true, {0, 0, 0, 4, 2, 2, {2, 1, 1, 0, 0}}},
        {"regular behind empty lines", u"\n\n1,a\n\n2,b\n", SIZE_MAX, true, {2, 0, 0, 5, 2, 2, {2, 0, 1, 0, 0}}},
        {"regular, guessed before", u"1,2\n\n3,4\n", 1, true, {2, 0, 0, 3, 2, 2, {}}},
        {"regular, not to be detected", u"\n1,2\n\n3,4\n", SIZE_MAX, false, {0, 0, 0, 4, 2, 2, {2, 0, 2, 0, 0}}},
        {"given header counts lines with fields", u"1,2\n\n3,4\n", 2, false, {2, 0, inf, 3, 2, 2, {}}},
        {"given header past lines with fields", u"1,2\n\n3,4\n", 3, false, {3, 0, 0, 3, 2, 1, {}}},
        {"one field or none", u"a\nb\n\n1\n", SIZE_MAX, true, {2, inf, inf, 4, 1, 1, {1, 0, 1, 0, 0}}},
        {"as many fields as regular lines", u"1,2\n\n1,2,3,4\n", SIZE_MAX, true, {0, 0, 0, 3, 2, 4, {4, 0, 4, 0, 0}}},
        {"multiples", u"1,2\n\n1,2,3,4\n\n5,6\n", SIZE_MAX, true, {4, 2.0 / 3, 0, 5, 2, 2, {}}},
        {"title and heading", u"t\n\nx,y,z\n1,2,3\n4,5,6\n7,8,9\n", SIZE_MAX, true, {2, 0.4, 0, 6, 3, 3, {3, 0, 3, 0, 0}}},
        {"given header takes all", u"1,2\n3,4\n5,6\n7\n", 3, false, {3, 0, inf, 4, 2, 1, {}}},
        {"given header takes all of a regular table", u"1,2\n3,4\n", 2, false, {2, 0, inf, 2, 2, 1, {}}},
        {"given header past it", u"1,2\n3,4\n5\n7\n", 3, false, {3, 0, 0, 4, 2, 1, {}}},
        {"the header is not measured", u"1,2,3,4\n1,2\n1,2\n1,2,3\n1,2\n", 1, false, {1, 0.6, 0.25, 5, 2, 3, {3, 0, 3, 0, 0}}},
        {"given and detected", u"a\n1,2\n3,4\n5,6\n", 2, true, {2, 0.25, 0, 4, 2, 2, {2, 0, 2, 0, 0}}},
        {"barely kept", u"1,2\n1,2,3,4\n1,2\n", 1, true, {1, 2.0 / 3, 1, 3, 2, 4, {2, 0, 2, 0, 0}}},
        {"given up", five_and_twelve, 5, true, {0, 1.875, 1.875, 8, 5, 12, {12, 0, 12, 0, 0}}},
        {"first data line says nothing", u"1,2\n", SIZE_MAX, true, {0, 0, 0, 1, 2, 2, {}}},
        {"the last telling value counts", u"a,b,x\n1,2,\n3,x,\n,,\n", SIZE_MAX, true, {0, 0, 0, 4, 3, 3, {2, 0, 1, 0, 0}}},
        {"short lines are passed over", u"a,b\n1,2\n3,4\nx\n", SIZE_MAX, true, {0, 0, 0, 4, 2, 2, {2, 0, 2, 0, 0}}},
        {"lone delimiters", u"a,b\n;,0x1F\n|,NaT\n", SIZE_MAX, true, {0, 0, 0, 3, 2, 2, {2, 0, 0, 1, 1}}},
    };
    for (const ValuationCase& c : cases) {
        const parser::options options{.header_lines = c.header_lines, .detect_header_lines = c.detect};
        const auto strategy = std::make_shared<DelimitedStrategy>(options, Types(), u',');
        const Field text(c.text);
        output::DetectionOutputBuilder builder;
        builder.text = &text;
        builder.sample_lines = 99;
        parser::read_sample(builder, strategy, true);
        const StrategyValuation& v = strategy->valuation();
        const Classes classes{v.classified_variables, v.temporal_variables, v.numeric_variables, v.datetime_variables,
                              v.punctuation_variables};
        EXPECT_EQ(Figures(v.header_lines, v.overall_variation, v.data_variation, v.num_lines, v.median_fields, v.num_variables,
                          classes),
                  c.expected)
            << c.name;
        EXPECT_EQ(strategy->header_lines(), v.header_lines) << c.name;
        EXPECT_EQ(strategy->num_variables(), v.num_variables) << c.name;
        EXPECT_EQ(strategy->field_array()->line_count(), v.num_lines) << c.name;
    }
}

/// The letters of the classes: one for each column.
std::string classes_of(const GenericStrategy& strategy) {
    std::string out;
    for (const auto column : strategy.column_classes()) {
        out += "?nt@?.?d:xb;,"[static_cast<std::size_t>(column)];
    }
    return out;
}

TEST(ColumnClasses, AreThoseThatTheValuationCounts) {
    struct Case {
        const char* name;
        std::u16string text;
        std::size_t header_lines;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"no lines", u"", SIZE_MAX, "."},
        {"every class", u"a,b,c,d,e,f,g,h,i\n1,x,2020-01-31 12:00,,2020-01-31,1:2:3,0x1F,0b1,\n,,,,,,,,;\n", SIZE_MAX,
         "nt@.d:xb,"},
        {"the first data line says nothing", u"t\na,b\n1,2\nx,y\n1,\n", SIZE_MAX, "nt"},
        {"one data line", u"1,2\n", SIZE_MAX, ".."},
        {"one field each", u"a\n1\n\n", SIZE_MAX, "n"},
        {"short and long lines", u"1,2\n1,2\n1:2\n3,x,4\n", SIZE_MAX, "ntn"},
        {"a long last line", u"1,2\n1,2\n1,2\n1,2\n1,2\n1:2\nx,,,,,12:30\n", SIZE_MAX, "tn...;"},
        {"columns end at the header", u"1,2,3,4\n1,2\n1,b\n", 1, "nt"},
    };
    for (const Case& c : cases) {
        const parser::options options{.header_lines = c.header_lines, .detect_header_lines = c.header_lines == SIZE_MAX};
        const auto strategy = std::make_shared<DelimitedStrategy>(options, Types(), u',');
        EXPECT_EQ(classes_of(*strategy), "") << c.name << ", without a sample";
        const Field text(c.text);
        output::DetectionOutputBuilder builder;
        builder.text = &text;
        builder.sample_lines = 99;
        parser::read_sample(builder, strategy, false);
        const std::string array = test::shown(*strategy->field_array());
        EXPECT_EQ(classes_of(*strategy), c.expected) << c.name << ", not valued";
        EXPECT_EQ(strategy->num_variables(), SIZE_MAX) << c.name;
        EXPECT_EQ(strategy->header_lines(), c.header_lines) << c.name;
        EXPECT_EQ(test::shown(*strategy->field_array()), array) << c.name;
        const StrategyValuation before = strategy->valuation();
        EXPECT_EQ(classes_of(*strategy), c.expected) << c.name << ", valued";
        EXPECT_EQ(strategy->valuation().classified_variables, before.classified_variables) << c.name;
    }
}

TEST(Valuation, HappensOnce) {
    DelimitedStrategy strategy(parser::options(), Types(), u',');
    strategy.reset_whitespace(u"_");
    const std::u16string text = u"_1";
    auto sample = std::make_unique<FieldArray>();
    for (int line = 0; line < 3; ++line) {
        const Field fields[] = {Field(text), Field(text)};
        sample->add_line(fields, fields + 2, 2);
    }
    strategy.field_array(std::move(sample));
    EXPECT_EQ(strategy.valuation().num_lines, 3U);
    EXPECT_EQ(strategy.valuation().numeric_variables, 2U);
    strategy.header_lines(1);
    constexpr std::uint64_t huge = std::uint64_t{1} << 53U;
    if (huge <= SIZE_MAX) {
        EXPECT_EQ(strategy.get_data_variation({0, static_cast<std::size_t>(huge), 1, 1}), 0x1p53 / 3) << "added up one by one";
    }
    strategy.field_array(std::make_unique<FieldArray>());
    EXPECT_EQ(strategy.valuation().num_lines, 3U);
    EXPECT_EQ(strategy.field_array()->line_count(), 0U);
}

} // namespace
