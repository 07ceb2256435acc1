#include "textio/candidates.hpp"

#include "parser/read_sample.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace textio;
using Types = zentor::io::text::typedetection::TypeAnalyzerOptions;
using Widths = std::vector<std::size_t>;

TEST(Candidates, ComeFromTheMiddleOfTheSample) {
    const auto delimiters = [](const std::vector<std::u16string>& lines) {
        FieldArray sample;
        for (const std::u16string& line : lines) {
            const Field field(line);
            sample.add_line(&field, &field + 1, 1);
        }
        return detection::get_candidate_delims(sample);
    };
    EXPECT_EQ(delimiters({}), u"");
    EXPECT_EQ(delimiters({u"a;b"}), u";");
    EXPECT_EQ(delimiters({u"a;b", u"", u"a,b"}), u",");
    EXPECT_EQ(delimiters({u"0;", u"", u"1,", u"", u"2:", u"3|", u"4~"}), u",:|~");
    EXPECT_EQ(delimiters({u"0;", u"1,", u"2:", u"3|", u"4:", u"5~"}), u":|");
    EXPECT_EQ(delimiters({u"0;", u"1,", u"2.", u"3|", u"4:", u"5~", u"6/"}), u"|:");
    const std::u16string gap(80, u'x');
    EXPECT_EQ(delimiters({u":" + gap + u";" + gap + u"<"}), u":;<") << "neighbours are told apart";
    std::u16string all;
    for (char16_t unit = 0; unit < 0x180; ++unit) {
        all += unit;
    }
    const std::u16string found = delimiters({all + u",\uFFFF?", u"\uFFFF"});
    EXPECT_EQ(delimiters({all + u","}).size(), 51U);
    EXPECT_EQ(found, u"") << "of two lines the second counts, up to the end of text";
    const std::u16string delims = delimiters({all});
    for (std::size_t unit = 0; unit < 0x10000; ++unit) {
        std::u16string line(117, u'x'); // no multiple of what is compared at once
        const std::size_t place = unit % line.size();
        line[place] = static_cast<char16_t>(unit);
        const bool is_delim = delims.find(line[place]) != std::u16string::npos;
        ASSERT_EQ(delimiters({line}), is_delim ? line.substr(place, 1) : u"") << unit;
    }
}

TEST(Candidates, AreFoundInLinesThatStandTogether) {
    const std::u16string text = u"a,\nb,\nc,\nd,\n4;\uFFFF:\r\n\n\n5|\uFFFF:\n/6\n#7\n*\n~\n?10\n?11\n";
    FieldArray lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find_first_of(u"\r\n", begin);
        const Field line(text.data() + begin, end - begin);
        lines.add_line(&line, &line + 1, 1);
        begin = text.find_first_not_of(u"\r\n", end);
    }
    EXPECT_EQ(detection::get_candidate_delims(lines), u";|/#*~") << "each up to its end of text";
    const std::u16string with_semicolons = u"a,b;c,d;e,f;";
    FieldArray others;
    for (std::size_t begin = 0; begin < with_semicolons.size(); begin += 4) {
        const Field line(with_semicolons.data() + begin, 3);
        others.add_line(&line, &line + 1, 1);
    }
    EXPECT_EQ(detection::get_candidate_delims(others), u",") << "between lines stands no candidate";
    std::u16string known = u"|\u00A7";
    detection::add_delims_from_line(Field(u"a|;b\u00A7;\"(|:"), known);
    EXPECT_EQ(known, u"|\u00A7;:");
}

TEST(Candidates, AreKeptUpToTheLimits) {
    const auto modes = [](const std::u16string& units) {
        const parser::options options{.header_lines = 0, .detect_header_lines = false};
        const Field text(units);
        output::DetectionOutputBuilder builder;
        builder.text = &text;
        builder.sample_lines = SIZE_MAX;
        const auto lines = std::make_shared<LineReaderStrategy>(options, Types());
        parser::read_sample(builder, lines, true);
        std::string found;
        for (const auto& candidate :
             detection::get_candidate_strategies(*lines->field_array(), text, options, Types(), builder)) {
            found += "dsf"[static_cast<std::size_t>(candidate->mode())];
        }
        return found;
    };
    EXPECT_EQ(modes(u"1,2,3,4\n1,2\n1,2,3,4\n1,2\n"), "") << "a variation of 1 is no table";
    EXPECT_EQ(modes(u"1 2\n3 4\n5 6\n"), "sd") << "equal shares of classes";
    EXPECT_EQ(modes(u"a b c d\nabc   d\n"), "fd") << "two lines can be padded";
    EXPECT_EQ(modes(u"a b c d\nabc  d\n"), "d") << "the second line is short";
}

TEST(Candidates, FixedWidthsStartBehindTheHeader) {
    const Field text(u"title\na  b\nc  d\ne  f\n");
    const parser::options options{.layout_hint = parser::layout::fixed_width};
    output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = SIZE_MAX;
    const auto lines = std::make_shared<LineReaderStrategy>(options, Types());
    parser::read_sample(builder, lines, true);
    const auto aligned = std::make_shared<SpaceAlignedStrategy>(options, Types());
    parser::read_sample(builder, aligned, false);
    const auto widths = [&] {
        std::vector<std::shared_ptr<GenericStrategy>> candidates;
        detection::add_possible_fixed_strategy(aligned, text, *lines->field_array(), candidates, options, Types(), builder);
        return candidates.front()->options().field_widths;
    };
    EXPECT_EQ(widths(), (Widths{1, 3})) << "the header is found first";
    aligned->header_lines(4);
    EXPECT_EQ(detection::detect_header_lines_fixed_width(aligned, *lines->field_array(), options), 4U);
    EXPECT_EQ(widths(), Widths{1}) << "nothing stands behind the last line";
}

/// A sanitizer sees what is read behind the text.
TEST(Candidates, AreReadFromTheTextOfTheBuilderAlone) {
    const std::u16string units = u"  12  north    7\n 345  south   89\n   6  west   123\n";
    const auto exact = std::make_unique<char16_t[]>(units.size());
    std::copy(units.begin(), units.end(), exact.get());
    const Field text(exact.get(), units.size());
    const Field wrong(exact.get(), units.size() + 4096);
    const parser::options options{.layout_hint = parser::layout::fixed_width};
    output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = SIZE_MAX;
    const auto lines = std::make_shared<LineReaderStrategy>(options, Types());
    parser::read_sample(builder, lines, true);
    const auto& sample = *lines->field_array();
    auto candidates = detection::get_candidate_strategies(sample, wrong, options, Types(), builder);
    const auto aligned = std::make_shared<SpaceAlignedStrategy>(options, Types());
    parser::read_sample(builder, aligned, true);
    detection::add_possible_fixed_strategy(aligned, wrong, sample, candidates, options, Types(), builder);
    ASSERT_EQ(candidates.size(), 2U);
    for (const auto& candidate : candidates) {
        EXPECT_EQ(candidate->options().field_widths, (Widths{4, 7, 5}));
    }
}

TEST(Candidates, FixedWidthsMustExplainMoreWithNoMoreVariables) {
    const auto is_better = [](std::size_t variables, double variation) {
        textio::StrategyValuation fixed;
        fixed.num_variables = variables;
        fixed.data_variation = variation;
        textio::StrategyValuation aligned;
        aligned.num_variables = 3;
        aligned.data_variation = .5;
        return detection::isFixedWidthStrategyBetterThanSpaceAlignedStrategy(fixed, aligned);
    };
    EXPECT_TRUE(is_better(3, .25));
    EXPECT_FALSE(is_better(4, .25));
    EXPECT_FALSE(is_better(3, .5));
}

TEST(Candidates, MeanDistanceFromTheMiddle) {
    int median = 0;
    EXPECT_EQ(detection::mad({1, 4, 0, 2}, median), 1.25);
    EXPECT_EQ(median, 2);
    EXPECT_TRUE(std::isnan(detection::mad({}, median)));
    EXPECT_EQ(median, 1);
}

} // namespace
