// Memory that runs out at any moment.
#include "reliability/layouts.hpp"
#include "reliability/memory.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace {

using namespace test;
using namespace textio::parser;
using textio::DelimitedStrategy;

TEST(RunningOut, LosesNothing) {
    for (const test::LayoutCase& layout : test::layout_cases) {
        // The long field has to be copied to take its separators out.
        const zentor::io::text::typedetection::TypeAnalyzerOptions types{.thousands_separator = u'2'};
        textio::detection::StrategySelector selector(layout.options, types);
        const std::string expected = test::answer(selector, layout.text);
        std::size_t failures = 0;
        Outcome outcome = Outcome::out_of_memory;
        for (std::size_t number = 0; outcome != Outcome::done; ++number) {
            const std::size_t before = blocks_in_use;
            outcome = with_failing_allocation(
                number, [&] { static_cast<void>(selector.pick_strategy(textio::Field(layout.text), 100)); });
            ASSERT_EQ(blocks_in_use, before) << layout.name << " leaks at allocation " << number;
            ASSERT_EQ(test::answer(selector, layout.text), expected) << layout.name << number;
            failures += outcome == Outcome::out_of_memory ? 1 : 0;
        }
        EXPECT_GT(failures, 15U) << layout.name;
    }
}

TEST(RunningOut, AReadThatRunsOutHoldsTheLinesBefore) {
    std::u16string text = u"a,b\n\n";
    const auto add_line = [&text](int fields, std::u16string_view field) {
        for (int number = 1; number < fields; ++number) {
            text += field;
        }
        text += u"\nd,e,,,\n";
    };
    add_line(300, u"c,");
    add_line(5000, u"xc,");
    for (const char16_t* const delimiter : {u",", u"c,"}) {
        const options options{.delimiters = {delimiter}, .trailing_delimiters_rule = trailing_delimiters::drop};
        textio::FieldArray whole;
        read_into<DelimitedRecordReader>(whole, options, text);
        const std::string lines = test::shown(whole);
        std::size_t partly = 0;
        Outcome outcome = Outcome::out_of_memory;
        for (std::size_t number = 0; outcome != Outcome::done; ++number) {
            textio::FieldArray read;
            outcome = with_failing_allocation(number, [&] { read_into<DelimitedRecordReader>(read, options, text); });
            ASSERT_EQ(read.fields.size(), read.line_ends.empty() ? 0 : read.line_ends.back()) << number;
            ASSERT_EQ(lines.compare(0, test::shown(read).size(), test::shown(read)), 0) << number;
            partly += !read.line_ends.empty() && outcome == Outcome::out_of_memory ? 1 : 0;
        }
        EXPECT_GT(partly, 3U) << "of the failures, hardly any came between lines";
    }
}

TEST(RunningOut, ALineIsAddedWholeOrNotAtAll) {
    const std::u16string text(9, u'x');
    const std::vector<textio::Field> line(9, textio::Field(text));
    const textio::Record record{{0, 1, 1, 2, 2, 3, 3, 9}, 9};
    for (std::size_t number = 0; number < 9; ++number) {
        textio::output::DetectionOutputBuilder builder;
        builder.field_array = std::make_unique<textio::FieldArray>();
        const textio::FieldArray& array = *builder.field_array;
        const auto add = [&] {
            builder.field_array->add_line(line.data(), line.data() + line.size(), line.size());
            builder.add_record(textio::Field(text), record);
        };
        with_failing_allocation(number, add);
        ASSERT_EQ(array.fields.size(), array.line_ends.empty() ? 0 : array.line_ends.back()) << number;
    }
}

std::string figures(DelimitedStrategy& strategy) {
    const textio::StrategyValuation& v = strategy.valuation();
    std::string out = test::shown(strategy) + ", " + std::to_string(v.data_variation);
    for (const std::size_t figure :
         {v.num_lines, std::size_t{v.classified_variables}, std::size_t{v.numeric_variables}, v.header_lines}) {
        out += " " + std::to_string(figure);
    }
    return out;
}

TEST(RunningOut, LeavesAStrategyUnvalued) {
    // The long number has to be copied to take its separators out.
    const zentor::io::text::typedetection::TypeAnalyzerOptions types{.thousands_separator = u'2'};
    const std::u16string first = u"title\nx,y\n1,a\n3," + std::u16string(20, u'1') + u'2' + std::u16string(20, u'1') + u"\n4,\n";
    const std::u16string second = u"x,y,z\n5,6,7\n1\n8,,\n9,,\n";
    const std::pair<const char*, void (*)(DelimitedStrategy&, const std::u16string&)> changes[] = {
        {"none", [](DelimitedStrategy&, const std::u16string&) {}},
        {"another sample",
         [](DelimitedStrategy& strategy, const std::u16string& text) { strategy.field_array(sample_of(text)); }},
        {"a fixed header", [](DelimitedStrategy& strategy, const std::u16string&) { strategy.header_lines(1); }},
    };
    for (const auto& [name, change] : changes) {
        DelimitedStrategy untroubled({}, types, u',');
        untroubled.field_array(sample_of(first));
        change(untroubled, second);
        const std::string expected = figures(untroubled);
        std::size_t failures = 0;
        Outcome outcome = Outcome::out_of_memory;
        for (std::size_t number = 0; outcome == Outcome::out_of_memory; ++number) {
            DelimitedStrategy strategy({}, types, u',');
            strategy.field_array(sample_of(first));
            outcome = with_failing_allocation(number, [&] { strategy.valuation(); });
            if (outcome == Outcome::out_of_memory) {
                ++failures;
                EXPECT_EQ(strategy.header_lines(), SIZE_MAX) << name << number;
                EXPECT_EQ(strategy.valuation_record().num_variables, 1U) << name << number;
                change(strategy, second);
                EXPECT_EQ(figures(strategy), expected) << name << number;
            }
        }
        EXPECT_GE(failures, 4U) << name;
    }
}

/// All that advice says of a text.
std::string advice_on(const std::u16string& text) {
    const textio::advice::Advice found = textio::advice::advise(textio::Field(text), 100);
    std::string told = std::to_string(found.confidence);
    for (const auto& each : found.proposals) {
        told += test::shown(*each.strategy) + test::shown(*each.strategy->field_array()) + std::to_string(each.score);
        for (const auto& column : each.columns) {
            told += test::shown(column.name) + std::to_string(column.missing);
        }
    }
    return told;
}

TEST(RunningOut, WhileAdvisingLosesNothing) {
    std::vector<std::u16string> texts{u"title\n|a|b|\n|1|x|\n|2|y|\n|3|z|\n", u"# t x\n0.5 7\n1.0 8\n# off\n1.5 9\n",
                                      u"'a,b';1\n'c,d';2\n'e,f';3\n", u"HD|1\nPO|1|a\nPO|2|b\nPO|3|c\nNT|x\nNT|y\n"};
    for (const test::LayoutCase& layout : test::layout_cases) {
        texts.push_back(layout.text);
    }
    const textio::advice::Settings settings;
    for (const std::u16string& text : texts) {
        const std::string expected = advice_on(text);
        std::size_t failures = 0;
        Outcome outcome = Outcome::out_of_memory;
        for (std::size_t number = 0; outcome != Outcome::done; ++number) {
            const std::size_t before = blocks_in_use;
            outcome = with_failing_allocation(
                number, [&] { static_cast<void>(textio::advice::advise(textio::Field(text), 100, settings)); });
            ASSERT_EQ(blocks_in_use, before) << test::shown(text) << " leaks at allocation " << number;
            failures += outcome == Outcome::out_of_memory ? 1 : 0;
        }
        EXPECT_EQ(advice_on(text), expected) << test::shown(text);
        EXPECT_GT(failures, 20U) << test::shown(text);
    }
}

TEST(RunningOut, LeavesAStreamAsItWas) {
    Letters letters;
    const zentor::io::text::stream::TextStream stream(letters);
    const auto view_size = [&stream] { return textio::get_fixed_stream(stream, {}).size; };
    EXPECT_EQ(with_failing_allocation(0, view_size), Outcome::out_of_memory);
    EXPECT_EQ(view_size(), 5U);
}

/// Delivers a text, whose place it keeps.
class Text : public zentor::io::text::stream::TextSource {
public:
    explicit Text(std::u16string_view text) : rest_(text) {}

    std::size_t read(char16_t* begin, char16_t* end) override {
        const std::size_t count = std::min(rest_.size(), static_cast<std::size_t>(end - begin));
        std::copy_n(rest_.begin(), count, begin);
        rest_.remove_prefix(count);
        return count;
    }

private:
    std::u16string_view rest_;
};

/// Counts the records, and with memory that runs out asks again.
std::size_t count_records(const textio::GenericStrategy& layout, std::u16string_view text, std::size_t failing) {
    Text source(text);
    zentor::io::text::stream::TextStream stream(source);
    textio::reading::Reader reader(layout, stream, {.policy = textio::reading::Policy::pad, .chunk_units = 64});
    std::size_t records = 0;
    bool is_done = false;
    while (!is_done) {
        const Outcome outcome = with_failing_allocation(failing, [&] {
            while (reader.next()) {
                ++records;
            }
        });
        is_done = outcome != Outcome::out_of_memory;
        failing = never;
    }
    return records;
}

TEST(RunningOut, LosesNoRecord) {
    for (const test::LayoutCase& layout : test::layout_cases) {
        const zentor::io::text::typedetection::TypeAnalyzerOptions types;
        textio::detection::StrategySelector selector(layout.options, types);
        const auto found = selector.pick_strategy(textio::Field(layout.text), 100);
        std::u16string text;
        for (int copy = 0; copy < 20; ++copy) {
            text += layout.text;
        }
        const std::size_t expected = count_records(*found, text, never);
        const std::size_t before = blocks_in_use;
        for (std::size_t failing = 0; failing < 60; ++failing) {
            ASSERT_EQ(count_records(*found, text, failing), expected) << layout.name << failing;
        }
        EXPECT_EQ(blocks_in_use, before) << layout.name;
        EXPECT_EQ(with_failing_allocation(0, [&] { textio::reading::Reader(*found, textio::Field(text)); }),
                  Outcome::out_of_memory);
    }
}

TEST(RunningOut, LosesNoTextOfUtf8) {
    class Bytes : public textio::utf8::ByteSource {
        std::size_t read(char* begin, char* end) override {
            const std::size_t count = std::min<std::size_t>(left_, static_cast<std::size_t>(end - begin));
            std::fill_n(begin, count, 'x');
            left_ -= count;
            return count;
        }
        std::size_t left_ = 100'000;
    };
    std::size_t failures = 0;
    Outcome outcome = Outcome::out_of_memory;
    for (std::size_t number = 0; outcome != Outcome::done; ++number) {
        const std::size_t before = blocks_in_use;
        outcome = with_failing_allocation(number, [] {
            Bytes bytes;
            textio::utf8::Source source(bytes);
            std::u16string text(100'001, u' ');
            ASSERT_EQ(source.read(text.data(), text.data() + text.size()), 100'000U);
            ASSERT_EQ(textio::utf8::decode("\xC3\xA4" + std::string(40, 'x')).text.size(), 41U);
        });
        ASSERT_EQ(blocks_in_use, before) << number;
        failures += outcome == Outcome::out_of_memory ? 1 : 0;
    }
    EXPECT_GT(failures, 3U);
}

} // namespace
