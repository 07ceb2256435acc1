// Memory that runs out at any moment. The program's own allocations are counted and made to fail,
// so this is a program by itself.
#include "c/handles.hpp"
#include "parser/reading.hpp"
#include "reliability/layouts.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

constexpr std::size_t never = SIZE_MAX;
std::size_t allocations_until_failure = never;
std::size_t largest_block = never; ///< what is larger cannot be had
std::size_t blocks_in_use = 0;
std::size_t blocks_made = 0;
std::size_t bytes_made = 0;

} // namespace

// Inlined, they would look like mismatched pairs of calls to the compiler.
[[gnu::noinline]] void* operator new(std::size_t size) {
    const bool is_due = allocations_until_failure == 0;
    const bool fails = is_due || size > largest_block;
    if (is_due) {
        allocations_until_failure = never;
    } else if (allocations_until_failure != never) {
        --allocations_until_failure;
    }
    void* const block = fails ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++blocks_in_use;
    ++blocks_made;
    bytes_made += size;
    return block;
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    blocks_in_use -= block == nullptr ? 0 : 1;
    std::free(block);
}

// All forms, as a sanitizer has forms of its own that would not call these.
void* operator new[](std::size_t size) {
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

void operator delete[](void* block) noexcept {
    operator delete(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

namespace {

enum class Outcome { done, done_without, out_of_memory };

/// What becomes of `action` if its allocation `number`, counted from 0, fails: it may do without.
template <class Action>
Outcome with_failing_allocation(std::size_t number, Action action) {
    Outcome outcome = Outcome::done;
    allocations_until_failure = number;
    try {
        action();
        outcome = allocations_until_failure == never ? Outcome::done_without : Outcome::done;
    } catch (const std::bad_alloc&) {
        outcome = Outcome::out_of_memory;
    }
    allocations_until_failure = never;
    return outcome;
}

TEST(Memory, RunningOutLosesNothing) {
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
        EXPECT_GT(failures, 30U) << layout.name;
    }
}

using namespace textio::parser;

/// Reads `text` into `array`.
template <class Reader>
void read_into(textio::FieldArray& array, const options& options, std::u16string_view text) {
    textio::output::DetectionOutputBuilder builder;
    builder.whitespace = std::make_unique<std::u16string>(options.whitespace);
    builder.field_array = std::make_unique<textio::FieldArray>();
    textio::Field view(text);
    try {
        read_records(options, Reader(options), SIZE_MAX, SIZE_MAX, view, builder);
    } catch (const std::bad_alloc&) {
        array = std::move(*builder.field_array);
        throw;
    }
    array = std::move(*builder.field_array);
}

TEST(Memory, AReadThatRunsOutHoldsTheLinesBefore) {
    std::u16string text = u"a,b\n\n";
    for (int fields = 1; fields < 300; ++fields) {
        text += u"c,";
    }
    text += u"\nd,e,,,\n";
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

TEST(Memory, ALineIsAddedWholeOrNotAtAll) {
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

// What was foretold from a text's first lines, and fields that are dropped again, are never held.
TEST(Memory, AReadTakesLittleMoreThanItHolds) {
    std::u16string much_to_come;
    for (int line = 0; line < 2000; ++line) {
        much_to_come += u"a\n";
    }
    much_to_come += std::u16string(4'000'000, u'x');
    std::u16string much_to_drop = u"a,b";
    much_to_drop += std::u16string(1'000'000, u',') + u"\nc";
    const struct {
        const char* name;
        std::u16string text;
        textio::parser::options options;
        std::size_t fields;
    } cases[] = {
        {"fewer lines than foretold", much_to_come, {.delimiters = {u","}}, 2001},
        {"trailing delimiters", much_to_drop, {.delimiters = {u","}, .trailing_delimiters_rule = trailing_delimiters::drop}, 3},
        {"trailing delimiters of two units",
         much_to_drop,
         {.delimiters = {u",,"}, .trailing_delimiters_rule = trailing_delimiters::drop},
         2},
    };
    for (const auto& c : cases) {
        textio::FieldArray array;
        largest_block = 1 << 20;
        EXPECT_NO_THROW(read_into<DelimitedRecordReader>(array, c.options, c.text)) << c.name;
        largest_block = never;
        EXPECT_EQ(array.fields.size(), c.fields) << c.name;
    }
}

using textio::DelimitedStrategy;

/// A sample of a text with a title, empty lines, and a column that is empty at the end.
std::unique_ptr<textio::FieldArray> sample_of(const std::u16string& text) {
    auto sample = std::make_unique<textio::FieldArray>();
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == u',' || text[at] == u'\n') {
            sample->fields.emplace_back(text.data() + begin, at - begin);
            begin = at + 1;
        }
        if (text[at] == u'\n') {
            sample->line_ends.push_back(sample->fields.size());
        }
    }
    sample->add_empty_line();
    return sample;
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

TEST(Memory, RunningOutOfItLeavesAStrategyUnvalued) {
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

TEST(Memory, ColumnsTakeAByteEachToInspect) {
    constexpr std::size_t columns = 1000;
    DelimitedStrategy strategy({}, {}, u',');
    std::u16string line;
    for (std::size_t column = 0; column < columns; ++column) {
        line += column + 1 < columns ? u"1," : u"1\n";
    }
    const std::u16string text = line + line;
    strategy.field_array(sample_of(text));
    ASSERT_EQ(strategy.valuation().numeric_variables, columns);
    const std::size_t blocks = blocks_made;
    const std::size_t bytes = bytes_made;
    strategy.inspect_datatypes();
    EXPECT_EQ(blocks_made - blocks, 1U);
    EXPECT_EQ(bytes_made - bytes, columns);
    EXPECT_EQ(strategy.valuation().numeric_variables, 2 * columns);
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

TEST(Memory, RunningOutWhileAdvisingLosesNothing) {
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
        EXPECT_GT(failures, 30U) << test::shown(text);
    }
}

class Letters : public zentor::io::text::stream::TextSource {
    std::size_t read(char16_t* begin, char16_t* /*end*/) override {
        std::fill_n(begin, 5, u'x');
        return 5;
    }
};

TEST(Memory, RunningOutLeavesAStreamAsItWas) {
    Letters letters;
    const zentor::io::text::stream::TextStream stream(letters);
    const auto view_size = [&stream] { return textio::get_fixed_stream(stream, {}).size; };
    EXPECT_EQ(with_failing_allocation(0, view_size), Outcome::out_of_memory);
    EXPECT_EQ(view_size(), 5U);
}

TEST(Memory, AStreamThatGrowsIsSeldomMoved) {
    constexpr std::size_t step = 100;
    constexpr std::size_t steps = 1000;
    Letters letters;
    const zentor::io::text::stream::TextStream stream(letters);
    const std::size_t before = bytes_made;
    for (std::size_t count = 1; count <= steps; ++count) {
        stream.resizeInternalBuffer(count * step);
        ASSERT_EQ(stream.data_end - stream.buffer_begin, static_cast<std::ptrdiff_t>(count * step));
        stream.data_end[-1] = static_cast<char16_t>(count);
    }
    EXPECT_LT(bytes_made - before, 5 * steps * step * sizeof(char16_t));
    const std::size_t room = steps * step;
    EXPECT_EQ(with_failing_allocation(0, [&] { stream.resizeInternalBuffer(2 * room); }), Outcome::out_of_memory);
    EXPECT_EQ(with_failing_allocation(0, [&] { stream.resizeInternalBuffer(2 * room + 1); }), Outcome::out_of_memory);
    stream.resizeInternalBuffer(2 * room);
    EXPECT_EQ(with_failing_allocation(0, [&] { stream.resizeInternalBuffer(2 * room + 1); }), Outcome::done_without);
    EXPECT_EQ(stream.data_end - stream.buffer_begin, static_cast<std::ptrdiff_t>(2 * room + 1));
    EXPECT_EQ(stream.buffer_begin[room - 1], steps) << "what was held is held";
    EXPECT_THROW(stream.resizeInternalBuffer(SIZE_MAX), std::bad_alloc);
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

TEST(Memory, RunningOutLosesNoRecord) {
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

TEST(Memory, ReadingOnAllocatesNothingForARecord) {
    const textio::DelimitedStrategy layout({}, {}, u',');
    std::u16string buffer(20, u'x');
    const auto allocations = [&](std::size_t rows) {
        std::u16string text;
        for (std::size_t row = 0; row < rows; ++row) {
            text += row % 7 == 0 ? u"1,\"2\"\"2\"\n" : u"1,\"2\"\"2\",\"3\n3\"\n";
        }
        textio::reading::Reader reader(layout, textio::Field(text), {.policy = textio::reading::Policy::pad, .fields = 3});
        const std::size_t enough = SIZE_MAX / 2;
        allocations_until_failure = enough;
        while (reader.next()) {
            for (const textio::Field& field : reader.fields()) {
                static_cast<void>(textio::reading::cell_value(field, reader.options(), buffer));
            }
        }
        return enough - std::exchange(allocations_until_failure, never);
    };
    EXPECT_LT(allocations(100'000), allocations(100) + 200);
}

TEST(Memory, RunningOutLosesNoTextOfUtf8) {
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

/// Calls of the C interface of which one finds no memory. That is called once more.
class CCalls {
public:
    explicit CCalls(std::size_t failing) : left_(failing) {}

    /// Only what the library allocates counts.
    template <class Action>
    auto counted(Action action) {
        allocations_until_failure = left_;
        const auto result = action();
        left_ = std::exchange(allocations_until_failure, never);
        return result;
    }

    template <class Action>
    void call(Action action) {
        textio_status status = counted(action);
        if (status == TEXTIO_NO_MEMORY) {
            ++failures;
            EXPECT_STRNE(textio_last_error(), "");
            status = action();
        }
        ASSERT_EQ(status, TEXTIO_OK) << textio_last_error();
    }

    /// The same for a call that gives a null pointer then.
    template <class Action>
    auto pointer(Action action) {
        const auto result = counted(action);
        failures += result == nullptr ? 1 : 0;
        return result == nullptr ? action() : result;
    }

    [[nodiscard]] bool has_failed() const { return left_ == never; }

    std::size_t failures = 0;

private:
    std::size_t left_; ///< allocations until one fails; never, if one has
};

/// The answer, and the records behind it.
std::string answer_in_c(CCalls& calls, const char* method) {
    const std::string text = "a;b\n1;\"a-\"\"quoted\"\"-value-that-is-rather-long\"\n3\n4;\xF0\x9F\x90\x9D\n";
    const test::Hints hints(calls.pointer(textio_hints_new));
    calls.call([&] { return textio_hints_set(hints.get(), "method", method); });
    calls.call([&] { return textio_hints_set(hints.get(), "whitespace", " \t~~~~~~~~~~~~~~~~"); });
    calls.call([&] { return textio_hints_add(hints.get(), "missing", "a text that means that nothing is there"); });
    calls.call([&] { return textio_hints_add(hints.get(), "missing", "NA"); });
    textio_layout* found = nullptr;
    calls.call([&] { return textio_detect_utf8(text.data(), text.size(), hints.get(), &found); });
    const test::Layout layout(found);
    textio_reader* made = nullptr;
    calls.call([&] { return textio_reader_utf8(found, 0, text.data(), text.size(), &made); });
    const test::Reader reader(made);
    calls.call([&] { return textio_reader_policy(made, "pad"); });
    std::string answer = textio_layout_json(found, nullptr);
    for (int has_record = 1; has_record == 1;) {
        calls.call([&] { return textio_reader_next(made, &has_record); });
        for (std::size_t field = 0; field < textio_reader_fields(made); ++field) {
            answer += calls.pointer([&] { return textio_reader_field_utf8(made, field, nullptr); });
            answer += '/';
        }
    }
    return answer;
}

TEST(Memory, RunningOutIsAStatusInC) {
    for (const char* const method : {"advice", "rules"}) {
        CCalls undisturbed(never);
        const std::string expected = answer_in_c(undisturbed, method);
        std::size_t failures = 0;
        bool has_failed = true;
        for (std::size_t number = 0; has_failed; ++number) {
            const std::size_t before = blocks_in_use;
            {
                CCalls calls(number);
                ASSERT_EQ(answer_in_c(calls, method), expected) << number;
                has_failed = calls.has_failed();
                failures += calls.failures;
            }
            ASSERT_EQ(blocks_in_use, before) << method << " leaks at allocation " << number;
        }
        EXPECT_GT(failures, 50U) << method;
    }
}

} // namespace
