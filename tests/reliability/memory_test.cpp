// Memory that runs out at any moment. The program's allocations are counted and made to fail, so it
// is a program of its own.
#include "reliability/layouts.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <optional>
#include <tuple>

namespace {

constexpr std::size_t never = SIZE_MAX;
std::size_t allocations_until_failure = never;
std::size_t blocks_in_use = 0;

} // namespace

// Inlined, they would look like mismatched pairs of calls to the compiler.
[[gnu::noinline]] void* operator new(std::size_t size) {
    if (allocations_until_failure != never && allocations_until_failure-- == 0) {
        throw std::bad_alloc();
    }
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++blocks_in_use;
    return block;
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    blocks_in_use -= block == nullptr ? 0 : 1;
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

namespace {

using zentor::io::text::typedetection::TypeAnalyzerOptions;

auto members(const textio::parser::options& o) {
    return std::tie(o.delimiters, o.line_endings, o.comment_style, o.whitespace,
                    o.excluded_delimiter, o.field_widths, o.header_lines, o.expected_variables,
                    o.reader_kind, o.consecutive_delimiters_rule, o.empty_line_rule,
                    o.leading_delimiters_rule, o.trailing_delimiters_rule, o.partial_field_rule,
                    o.detect_delimiters, o.detect_header_lines);
}

enum class Outcome { answered, out_of_memory };

/// Does `action` while the allocation behind `number` others fails. Gives nothing if `action` has
/// no such allocation.
template <class Action>
std::optional<Outcome> with_failing_allocation(std::size_t number, Action action) {
    Outcome outcome = Outcome::answered;
    allocations_until_failure = number;
    try {
        action();
    } catch (const std::bad_alloc&) {
        outcome = Outcome::out_of_memory;
    }
    const bool has_failed = allocations_until_failure == never;
    allocations_until_failure = never;
    return has_failed ? std::optional(outcome) : std::nullopt;
}

TEST(Memory, RunningOutLosesNothing) {
    for (const auto& [name, text, options] : test::layout_cases()) {
        const textio::parser::options given = options;
        const TypeAnalyzerOptions type_options{.thousands_separator = u',',
                                               .decimal_separator = u';'};
        textio::detection::StrategySelector selector(given, type_options);
        const std::string expected = test::answer(selector, text);
        std::size_t failures = 0;
        std::optional<Outcome> outcome;
        for (std::size_t number = 0; number == 0 || outcome; ++number) {
            const std::size_t before = blocks_in_use;
            outcome = with_failing_allocation(number, [&] {
                static_cast<void>(selector.pick_strategy(textio::Field(text), 100));
            });
            ASSERT_EQ(blocks_in_use, before) << name << ": leak after allocation " << number;
            ASSERT_EQ(test::answer(selector, text), expected) << name << " after " << number;
            failures += outcome == Outcome::out_of_memory ? 1 : 0;
        }
        // A sort does with less memory where it has to; nothing else can.
        EXPECT_GT(failures, 10U) << name;
        EXPECT_TRUE(members(given) == members(options)) << name << ": the options have changed";
    }
}

class Letters : public zentor::io::text::stream::TextSource {
public:
    std::size_t read(char16_t* begin, char16_t* end) override {
        const auto count = std::min<std::size_t>(static_cast<std::size_t>(end - begin), 5);
        std::fill_n(begin, count, u'x');
        return count;
    }
};

TEST(Memory, RunningOutLeavesAStreamAsItWas) {
    Letters letters;
    const zentor::io::text::stream::TextStream stream(letters);
    const auto view_size = [&stream] { return textio::get_fixed_stream(stream, {}).size; };
    EXPECT_EQ(with_failing_allocation(0, view_size), Outcome::out_of_memory);
    EXPECT_EQ(stream.data_end, stream.buffer_begin);
    EXPECT_FALSE(stream.at_eof);
    EXPECT_EQ(view_size(), 5U);
}

} // namespace
