// What is found of a text in C: it outlives the text, and is the same for all forms of it.
#include "c/handles.hpp"
#include "c/pieces.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace {

using test::hints_of;
using test::Layout;
using test::layout_of;
using test::Pieces;
using test::reader_of;

constexpr std::string_view prices = "Stock\nitem;price\nbolt;0,12\nnut;0,08\npin;1,25\n";

TEST(CLayout, OutlivesTheText) {
    std::string text(prices);
    const Layout layout = layout_of(text);
    std::fill(text.begin(), text.end(), '#');
    EXPECT_STREQ(textio_layout_kind(layout.get(), 0), "delimited");
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, nullptr), ";");
    EXPECT_STREQ(textio_layout_decimal(layout.get(), 0, nullptr), ",");
    EXPECT_EQ(textio_layout_comment(layout.get(), 0, nullptr), nullptr);
    EXPECT_EQ(textio_layout_names_line(layout.get(), 0), 1U);
    EXPECT_EQ(textio_layout_first_data_line(layout.get(), 0), 2U);
    EXPECT_EQ(textio_layout_header_lines(layout.get(), 0), 2U);
    ASSERT_EQ(textio_layout_columns(layout.get(), 0), 2U);
    EXPECT_STREQ(textio_layout_column_name(layout.get(), 0, 1, nullptr), "price");
    EXPECT_STREQ(textio_layout_column_class(layout.get(), 0, 1), "number");
    EXPECT_EQ(textio_layout_column_values(layout.get(), 0, 1), 3U);
    EXPECT_EQ(textio_layout_rows(layout.get(), 0), 5U);
    EXPECT_EQ(textio_layout_regular_rows(layout.get(), 0), 4U);
    EXPECT_EQ(textio_layout_data_rows(layout.get()), 3U);
    EXPECT_EQ(textio_layout_is_table(layout.get()), 1);
    EXPECT_EQ(
        std::string_view(textio_layout_why(layout.get(), 0)).find("4 of 5 rows have 2 fields; 1 column holds numbers, 1 text"),
        0U)
        << textio_layout_why(layout.get(), 0);
}

TEST(CLayout, ScoresAreProductsOfTheirTerms) {
    const Layout layout = layout_of(prices);
    const size_t proposals = textio_layout_proposals(layout.get());
    ASSERT_GE(proposals, 2U);
    for (size_t i = 0; i < proposals; ++i) {
        double product = 1;
        for (size_t term = 0; term < textio_layout_terms(layout.get(), i); ++term) {
            EXPECT_STRNE(textio_layout_term_name(layout.get(), i, term), "");
            product *= textio_layout_term_value(layout.get(), i, term);
        }
        EXPECT_EQ(textio_layout_score(layout.get(), i), product);
    }
    EXPECT_GT(textio_layout_confidence(layout.get()), 1);
}

TEST(CLayout, RulesTellWhatTheyKnow) {
    const test::Hints hints = hints_of({{"method", "rules"}, {"decimal", ","}, {"missing", "1,25"}});
    const Layout layout = layout_of(prices, hints.get());
    ASSERT_NE(layout, nullptr) << textio_last_error();
    EXPECT_EQ(textio_layout_proposals(layout.get()), 1U);
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, nullptr), ";");
    EXPECT_EQ(textio_layout_header_lines(layout.get(), 0), 1U);
    EXPECT_EQ(textio_layout_names_line(layout.get(), 0), TEXTIO_NO_LINE);
    EXPECT_EQ(textio_layout_column_missing(layout.get(), 0, 1), 1U);
    EXPECT_EQ(textio_layout_rows(layout.get(), 0), 5U);
    EXPECT_EQ(textio_layout_regular_rows(layout.get(), 0), 4U);
    EXPECT_EQ(textio_layout_data_rows(layout.get()), 4U);
    EXPECT_EQ(textio_layout_terms(layout.get(), 0), 0U);
    EXPECT_EQ(textio_layout_confidence(layout.get()), 0);
    EXPECT_EQ(test::shown_records(reader_of(layout, prices).get()), "[item][price]/[bolt][0,12]/[nut][0,08]/[pin][1,25]/");
}

TEST(CDetection, IsTheSameForAllFormsOfAText) {
    const std::string text = "\xEF\xBB\xBFStra\xC3\x9F"
                             "e;Zahl\n\xF0\x9F\x90\x9D;1\n\xFF;22\nz;3\n";
    const std::u16string units = u"Straße;Zahl\n🐝;1\n\uFFFD;22\nz;3\n";
    const std::string expected = textio_layout_json(layout_of(text).get(), nullptr);
    textio_layout* layout = nullptr;
    ASSERT_EQ(textio_detect_utf16(units.data(), units.size(), nullptr, &layout), TEXTIO_OK);
    size_t length = 0;
    EXPECT_EQ(textio_layout_json(Layout(layout).get(), &length), expected);
    EXPECT_EQ(length, expected.size());
    for (const std::size_t piece : {1U, 7U, 1000U}) {
        Pieces pieces{text, piece};
        ASSERT_EQ(textio_detect_source(Pieces::read, &pieces, nullptr, &layout), TEXTIO_OK);
        EXPECT_EQ(textio_layout_json(Layout(layout).get(), nullptr), expected);
    }
    Pieces failing{text, 5, 2};
    EXPECT_EQ(textio_detect_source(Pieces::read, &failing, nullptr, &layout), TEXTIO_SOURCE_FAILED);
    EXPECT_EQ(layout, nullptr);
}

TEST(CDetection, LooksAtWholeLinesOfALongText) {
    constexpr std::size_t limit = 4'194'304;
    std::string text;
    while (text.size() <= 2 * limit) {
        text += "12345678901;1\r\n";
    }
    const std::size_t seen = limit / 15;
    const test::Hints hints = hints_of({{"rows", "10000000"}});
    const Layout layout = layout_of(text, hints.get());
    EXPECT_EQ(textio_layout_rows(layout.get(), 0), seen);
    EXPECT_EQ(textio_layout_regular_rows(layout.get(), 0), seen);
    Pieces pieces{text, 1 << 20};
    textio_layout* found = nullptr;
    ASSERT_EQ(textio_detect_source(Pieces::read, &pieces, hints.get(), &found), TEXTIO_OK);
    EXPECT_STREQ(textio_layout_json(Layout(found).get(), nullptr), textio_layout_json(layout.get(), nullptr));
    EXPECT_EQ(pieces.delivered, limit + 1);
}

} // namespace
