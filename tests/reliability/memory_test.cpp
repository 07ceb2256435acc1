// Memory that runs out at any moment. The program's own allocations are counted and made to fail,
// so this is a program by itself.
#include "reliability/layouts.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t never = SIZE_MAX;
std::size_t allocations_until_failure = never;
std::size_t blocks_in_use = 0;

} // namespace

// Inlined, they would look like mismatched pairs of calls to the compiler.
[[gnu::noinline]] void* operator new(std::size_t size) {
    const bool fails = allocations_until_failure == 0;
    if (fails) {
        allocations_until_failure = never;
    } else if (allocations_until_failure != never) {
        --allocations_until_failure;
    }
    void* const block = fails ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
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

} // namespace
