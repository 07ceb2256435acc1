// What is said of a text in C, one by one and together.
#include "c/handles.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using test::hints_of;
using test::HintTexts;
using test::Layout;
using test::layout_of;
using test::reader_of;

constexpr std::string_view prices = "Stock\nitem;price\nbolt;0,12\nnut;0,08\npin;1,25\n";

struct HintCase {
    const char* name;
    const char* value;
    textio_status status;
    const char* says = "";
};

TEST(CHints, AreCheckedOneByOne) {
    const HintCase cases[] = {
        {"rows", "0", TEXTIO_OK},
        {"rows", "18446744073709551616", TEXTIO_BAD_VALUE, "too large"},
        {"rows", "99999999999999999999999", TEXTIO_BAD_VALUE, "too large"},
        {"rows", "", TEXTIO_BAD_VALUE, "not a number"},
        {"rows", "12a", TEXTIO_BAD_VALUE, "not a number"},
        {"method", "rules", TEXTIO_OK},
        {"method", "Rules", TEXTIO_BAD_VALUE, "neither"},
        {"kind", "fixed_width", TEXTIO_OK},
        {"kind", "fixed", TEXTIO_BAD_VALUE, "'fixed' is none of"},
        {"delimiter", "", TEXTIO_BAD_VALUE, "empty"},
        {"delimiter", "::", TEXTIO_OK},
        {"delimiter", "\xC3", TEXTIO_BAD_VALUE, "not UTF-8"},
        {"quote", "", TEXTIO_OK},
        {"quote", "\xC2\xAB", TEXTIO_OK},
        {"quote", "\xF0\x9F\x90\x9D", TEXTIO_BAD_VALUE, "more than one"},
        {"decimal", "", TEXTIO_BAD_VALUE, "not a character"},
        {"widths", "10,8,6", TEXTIO_OK},
        {"widths", "", TEXTIO_OK},
        {"widths", "10,", TEXTIO_BAD_VALUE, "not a number"},
        {"widths", ",10", TEXTIO_BAD_VALUE, "not a number"},
        {"widths", "10;8", TEXTIO_BAD_VALUE, "not a number"},
        {"names_line", "none", TEXTIO_OK},
        {"first_data_line", "none", TEXTIO_BAD_VALUE, "not a number"},
        {"quote ", "'", TEXTIO_UNKNOWN_NAME, "'quote '"},
        {"", "", TEXTIO_UNKNOWN_NAME, "''"},
    };
    const test::Hints hints(textio_hints_new());
    for (const HintCase& test : cases) {
        EXPECT_EQ(textio_hints_set(hints.get(), test.name, test.value), test.status) << test.name << '=' << test.value;
        if (test.status != TEXTIO_OK) {
            EXPECT_NE(std::strstr(textio_last_error(), test.says), nullptr) << textio_last_error();
        }
    }
}

TEST(CHints, ThatAreRefusedChangeNothing) {
    const test::Hints hints = hints_of({{"delimiter", ":"}, {"widths", nullptr}});
    EXPECT_EQ(textio_hints_set(hints.get(), "delimiter", ""), TEXTIO_BAD_VALUE);
    EXPECT_EQ(textio_hints_add(hints.get(), "delimiter", ";"), TEXTIO_BAD_VALUE) << "it is no list";
    EXPECT_EQ(textio_hints_add(hints.get(), "widths", "x"), TEXTIO_BAD_VALUE);
    EXPECT_EQ(textio_hints_set(hints.get(), "delim", "x"), TEXTIO_UNKNOWN_NAME);
    const Layout layout = layout_of("1:2;3\n4:5;6\n", hints.get());
    ASSERT_NE(layout, nullptr) << textio_last_error();
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, nullptr), ":");
}

TEST(CHints, CanBeTakenBackByTheirNames) {
    const test::Hints hints(textio_hints_new());
    const std::string before = textio_layout_json(layout_of(prices, hints.get()).get(), nullptr);
    for (const auto& [name, value] : HintTexts{{"kind", "line"}, {"delimiter", ":"}, {"first_data_line", "3"}, {"rows", "1"}}) {
        ASSERT_EQ(textio_hints_set(hints.get(), name, value), TEXTIO_OK);
        EXPECT_NE(textio_layout_json(layout_of(prices, hints.get()).get(), nullptr), before) << name;
        ASSERT_EQ(textio_hints_set_sized(hints.get(), name, nullptr, 9), TEXTIO_OK);
    }
    std::size_t names = 0;
    for (; textio_hint_name(names) != nullptr; ++names) {
        EXPECT_EQ(textio_hints_set(hints.get(), textio_hint_name(names), nullptr), TEXTIO_OK) << textio_hint_name(names);
    }
    EXPECT_EQ(names, 14U);
    EXPECT_EQ(textio_layout_json(layout_of(prices, hints.get()).get(), nullptr), before);
}

TEST(CHints, OfListsGrow) {
    const test::Hints hints(textio_hints_new());
    for (const char* const width : {"2", "1", "2"}) {
        ASSERT_EQ(textio_hints_add(hints.get(), "widths", width), TEXTIO_OK);
    }
    const Layout layout = layout_of("aa1bb\ncc2dd\n", hints.get());
    size_t count = 0;
    const size_t* const widths = textio_layout_widths(layout.get(), 0, &count);
    ASSERT_EQ(count, 3U);
    EXPECT_EQ(std::vector(widths, widths + count), (std::vector<size_t>{2, 1, 2}));
}

TEST(CHints, CanHoldANull) {
    const std::string text("a\0b\n1\0002\n3\0004\n", 12);
    const test::Hints hints(textio_hints_new());
    ASSERT_EQ(textio_hints_set_sized(hints.get(), "delimiter", "\0", 1), TEXTIO_OK);
    const Layout layout = layout_of(text, hints.get());
    size_t length = 0;
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, &length), "");
    EXPECT_EQ(length, 1U);
    EXPECT_NE(std::strstr(textio_layout_json(layout.get(), nullptr), R"("delimiter":"\u0000")"), nullptr);
    EXPECT_EQ(test::shown_records(reader_of(layout, text).get()), "[1][2]/[3][4]/");
}

TEST(CHints, ThatContradictAreRefused) {
    const std::pair<HintTexts, const char*> cases[] = {
        {{{"delimiter", ","}, {"widths", "1,2"}}, "delimiter"},
        {{{"delimiter", ","}, {"kind", "space_aligned"}}, "delimiter"},
        {{{"widths", "1,2"}, {"kind", "delimited"}}, "widths"},
        {{{"comment_end", "*/"}}, "comment_end"},
        {{{"comment", ""}, {"comment_end", "*/"}}, "comment_end"},
        {{{"method", "rules"}, {"delimiter", ","}}, "delimiter"},
        {{{"method", "rules"}, {"names_line", "0"}}, "names_line"},
        {{{"method", "rules"}, {"kind", "line"}}, "kind"},
    };
    for (const auto& [texts, says] : cases) {
        textio_layout* layout = nullptr;
        EXPECT_EQ(textio_detect_utf8("a,b\n", 4, hints_of(texts).get(), &layout), TEXTIO_BAD_VALUE) << says;
        EXPECT_EQ(std::string_view(textio_last_error()).find(says), 0U) << textio_last_error();
        EXPECT_EQ(layout, nullptr);
    }
    for (const HintTexts& texts : {HintTexts{{"delimiter", ","}, {"kind", "delimited"}}, HintTexts{{"comment_end", ""}},
                                   HintTexts{{"method", "rules"}, {"kind", "fixed_width"}, {"names_line", nullptr}}}) {
        EXPECT_NE(layout_of("a,b\n1,2\n", hints_of(texts).get()), nullptr) << textio_last_error();
    }
}

} // namespace
