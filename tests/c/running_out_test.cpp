// Memory that runs out at any moment of a use of the C interface.
#include "c/handles.hpp"
#include "reliability/memory.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using namespace test;

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

// A vector of libc++ 14 does not give its room back when the copy of a member finds no memory.
#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 15000
constexpr bool standard_library_leaks = true;
#else
constexpr bool standard_library_leaks = false;
#endif

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
            ASSERT_TRUE(standard_library_leaks || blocks_in_use == before) << method << " leaks at allocation " << number;
        }
        EXPECT_GT(failures, 50U) << method;
    }
}

} // namespace
