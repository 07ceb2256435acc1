// Every function with nothing in its hands.
#include "c/handles.hpp"

#include <gtest/gtest.h>

#include <array>

namespace {

const test::Layout layout = test::layout_of("a,b\n1,2\n3,4\n");

/// Reached by null pointers and by indexes that lead nowhere.
using Where = std::pair<const textio_layout*, size_t>;
const std::array nowhere{Where(nullptr, 0), Where(layout.get(), 1000), Where(layout.get(), SIZE_MAX)};

TEST(CNulls, GiveNoText) {
    const auto texts = {textio_layout_delimiter,   textio_layout_quote,   textio_layout_comment,
                        textio_layout_comment_end, textio_layout_decimal, textio_layout_thousands};
    for (const auto& [handle, proposal] : nowhere) {
        for (const auto text : texts) {
            size_t length = 7;
            EXPECT_EQ(text(handle, proposal, &length), nullptr);
            EXPECT_EQ(length, 0U);
            EXPECT_EQ(text(handle, proposal, nullptr), nullptr);
        }
        size_t length = 7;
        EXPECT_EQ(textio_layout_column_name(handle, proposal, 0, &length), nullptr);
        EXPECT_EQ(length, 0U);
        EXPECT_EQ(textio_layout_column_name(layout.get(), 0, 2, nullptr), nullptr);
        EXPECT_EQ(textio_layout_kind(handle, proposal), nullptr);
        EXPECT_EQ(textio_layout_why(handle, proposal), nullptr);
        EXPECT_EQ(textio_layout_column_class(handle, proposal, 0), nullptr);
        EXPECT_EQ(textio_layout_term_name(handle, proposal, 0), nullptr);
    }
    EXPECT_EQ(textio_layout_json(nullptr, nullptr), nullptr);
    EXPECT_EQ(textio_hint_name(SIZE_MAX), nullptr);
    EXPECT_EQ(textio_reader_fault(nullptr), nullptr);
    EXPECT_EQ(textio_reader_end(nullptr), nullptr);
}

TEST(CNulls, GiveNoNumber) {
    for (const auto& [handle, proposal] : nowhere) {
        for (const auto number : {textio_layout_names_line, textio_layout_first_data_line, textio_layout_header_lines,
                                  textio_layout_columns, textio_layout_rows, textio_layout_regular_rows, textio_layout_terms}) {
            EXPECT_EQ(number(handle, proposal), 0U);
        }
        size_t count = 7;
        EXPECT_EQ(textio_layout_widths(handle, proposal, &count), nullptr);
        EXPECT_EQ(count, 0U);
        EXPECT_EQ(textio_layout_column_values(handle, proposal, 0), 0U);
        EXPECT_EQ(textio_layout_column_missing(handle, proposal, 0), 0U);
        EXPECT_EQ(textio_layout_score(handle, proposal), 0);
        EXPECT_EQ(textio_layout_term_value(handle, proposal, 0), 0);
    }
    EXPECT_EQ(textio_layout_proposals(nullptr), 0U);
    EXPECT_EQ(textio_layout_confidence(nullptr), 0);
    EXPECT_EQ(textio_layout_is_table(nullptr), 0);
    EXPECT_EQ(textio_layout_data_rows(nullptr), 0U);
    EXPECT_EQ(textio_reader_fields(nullptr), 0U);
    EXPECT_EQ(textio_reader_line(nullptr), 0U);
    EXPECT_EQ(textio_reader_irregular(nullptr), 0U);
}

size_t read_nothing(void* /*context*/, char* /*buffer*/, size_t /*size*/) {
    return 0;
}

TEST(CNulls, AreBadArguments) {
    const test::Hints hints(textio_hints_new());
    const test::Reader reader = test::reader_of(layout, "");
    textio_layout* found = layout.get();
    textio_reader* made = reader.get();
    int has_record = 7;
    const std::pair<const char*, textio_status> calls[] = {
        {"set: hints", textio_hints_set(nullptr, "quote", "'")},
        {"set: name", textio_hints_set(hints.get(), nullptr, "'")},
        {"set sized: hints", textio_hints_set_sized(nullptr, "quote", "'", 1)},
        {"set sized: name", textio_hints_set_sized(hints.get(), nullptr, "'", 1)},
        {"add: hints", textio_hints_add(nullptr, "missing", "NA")},
        {"add: name", textio_hints_add(hints.get(), nullptr, "NA")},
        {"add: value", textio_hints_add(hints.get(), "missing", nullptr)},
        {"utf16: layout", textio_detect_utf16(u"", 0, nullptr, nullptr)},
        {"utf8: layout", textio_detect_utf8("", 0, nullptr, nullptr)},
        {"source: layout", textio_detect_source(read_nothing, nullptr, nullptr, nullptr)},
        {"utf16: text", textio_detect_utf16(nullptr, 1, nullptr, &found)},
        {"utf8: text", textio_detect_utf8(nullptr, 1, nullptr, &found)},
        {"source: callback", textio_detect_source(nullptr, nullptr, nullptr, &found)},
        {"reader utf16: layout", textio_reader_utf16(nullptr, 0, u"", 0, &made)},
        {"reader utf8: layout", textio_reader_utf8(nullptr, 0, "", 0, &made)},
        {"reader source: layout", textio_reader_source(nullptr, 0, read_nothing, nullptr, &made)},
        {"reader utf16: reader", textio_reader_utf16(layout.get(), 0, u"", 0, nullptr)},
        {"reader utf8: reader", textio_reader_utf8(layout.get(), 0, "", 0, nullptr)},
        {"reader source: reader", textio_reader_source(layout.get(), 0, read_nothing, nullptr, nullptr)},
        {"reader utf16: text", textio_reader_utf16(layout.get(), 0, nullptr, 1, &made)},
        {"reader utf8: text", textio_reader_utf8(layout.get(), 0, nullptr, 1, &made)},
        {"reader source: callback", textio_reader_source(layout.get(), 0, nullptr, nullptr, &made)},
        {"reader: proposal", textio_reader_utf8(layout.get(), 1000, "", 0, &made)},
        {"policy: reader", textio_reader_policy(nullptr, "keep")},
        {"policy: word", textio_reader_policy(reader.get(), nullptr)},
        {"next: answer", textio_reader_next(reader.get(), nullptr)},
        {"next: reader", textio_reader_next(nullptr, &has_record)},
    };
    for (const auto& [what, status] : calls) {
        EXPECT_EQ(status, TEXTIO_BAD_ARGUMENT) << what;
    }
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(has_record, 0);
    EXPECT_STRNE(textio_last_error(), "");
}

TEST(CNulls, AreEmptyTexts) {
    const test::Layout empty = test::layout_of({});
    ASSERT_NE(empty, nullptr);
    textio_reader* made = nullptr;
    ASSERT_EQ(textio_reader_utf16(empty.get(), 0, nullptr, 0, &made), TEXTIO_OK);
    const test::Reader reader(made);
    EXPECT_EQ(test::shown_records(reader.get()), "");
    EXPECT_STREQ(textio_reader_end(reader.get()), "of_text");
}

TEST(CNulls, AreNoFields) {
    const test::Reader reader = test::reader_of(layout, "a,b\n1,2\n");
    size_t length = 7;
    EXPECT_EQ(textio_reader_field_utf8(nullptr, 0, &length), nullptr);
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(textio_reader_field_utf16(nullptr, 0, nullptr), nullptr);
    EXPECT_EQ(textio_reader_field_utf8(reader.get(), 0, nullptr), nullptr) << "there is no record yet";
    int has_record = 0;
    ASSERT_EQ(textio_reader_next(reader.get(), &has_record), TEXTIO_OK);
    EXPECT_NE(textio_reader_field_utf8(reader.get(), 1, nullptr), nullptr);
    length = 7;
    EXPECT_EQ(textio_reader_field_utf16(reader.get(), 2, &length), nullptr);
    EXPECT_EQ(length, 0U);
}

TEST(CNulls, AreFreed) {
    textio_hints_free(nullptr);
    textio_layout_free(nullptr);
    textio_reader_free(nullptr);
}

} // namespace
