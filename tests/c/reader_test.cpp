// The records of a text in C.
#include "c/handles.hpp"
#include "c/pieces.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using test::Layout;
using test::layout_of;
using test::Pieces;
using test::Reader;
using test::reader_of;

TEST(CReader, GivesTheSameFromAllFormsOfAText) {
    const std::string text = "a,b\n1,\"x \"\"y\"\" \xC3\xA4\"\n2, \"\xF0\x9F\x90\x9D\n\" \n";
    const std::u16string units = u"a,b\n1,\"x \"\"y\"\" ä\"\n2, \"🐝\n\" \n";
    const std::string expected = "[1][x \"y\" \xC3\xA4]/[2][\xF0\x9F\x90\x9D\n]/";
    const Layout layout = layout_of(text);
    EXPECT_EQ(test::shown_records(reader_of(layout, text).get()), expected);
    textio_reader* reader = nullptr;
    ASSERT_EQ(textio_reader_utf16(layout.get(), 0, units.data(), units.size(), &reader), TEXTIO_OK);
    EXPECT_EQ(test::shown_records(Reader(reader).get()), expected);
    for (std::size_t failing = 0; failing < 60; ++failing) {
        Pieces pieces{text, 1, failing};
        ASSERT_EQ(textio_reader_source(layout.get(), 0, Pieces::read, &pieces, &reader), TEXTIO_OK);
        const Reader owned(reader);
        std::string records = test::shown_records(reader);
        records += test::shown_records(reader); // on behind the failure, if there was one
        EXPECT_EQ(records, expected) << failing;
    }
}

TEST(CReader, KeepsTheValuesOfOneRecordApart) {
    const std::string_view text = "a,b\n\"1\"\"1\",\"2\"\"2\"\n";
    const Layout layout = layout_of(text);
    const Reader reader = reader_of(layout, text);
    int has_record = 0;
    ASSERT_EQ(textio_reader_next(reader.get(), &has_record), TEXTIO_OK);
    size_t lengths[2];
    const textio_unit* const first = textio_reader_field_utf16(reader.get(), 0, &lengths[0]);
    const textio_unit* const second = textio_reader_field_utf16(reader.get(), 1, &lengths[1]);
    const char* const bytes = textio_reader_field_utf8(reader.get(), 0, nullptr);
    textio_reader_field_utf8(reader.get(), 1, nullptr);
    EXPECT_EQ(std::u16string_view(first, lengths[0]), u"1\"1");
    EXPECT_EQ(std::u16string_view(second, lengths[1]), u"2\"2");
    EXPECT_STREQ(bytes, "1\"1");
    EXPECT_EQ(textio_reader_line(reader.get()), 1U);
}

struct PolicyCase {
    const char* policy;
    const char* records;
    const char* end;
    size_t irregular;
};

TEST(CReader, FollowsItsPolicy) {
    const std::string_view text = "a,b,c\n1,2,3\n4,5\n6,7,8\n9,,,0\n";
    const Layout layout = layout_of("a,b,c\n1,2,3\n6,7,8\n");
    const PolicyCase cases[] = {
        {"keep", "[1][2][3]/[4][5]/[6][7][8]/[9][][][0]/", "of_text", 2},
        {"pad", "[1][2][3]/[4][5][]/[6][7][8]/[9][][][0]/", "of_text", 2},
        {"skip", "[1][2][3]/[6][7][8]/", "of_text", 2},
        {"stop", "[1][2][3]/", "stopped", 1},
    };
    for (const PolicyCase& test : cases) {
        const Reader reader = reader_of(layout, text);
        EXPECT_EQ(textio_reader_policy(reader.get(), "guess"), TEXTIO_BAD_VALUE);
        ASSERT_EQ(textio_reader_policy(reader.get(), test.policy), TEXTIO_OK);
        EXPECT_STREQ(textio_reader_end(reader.get()), "not_yet");
        EXPECT_EQ(test::shown_records(reader.get()), test.records) << test.policy;
        EXPECT_STREQ(textio_reader_end(reader.get()), test.end) << test.policy;
        EXPECT_EQ(textio_reader_irregular(reader.get()), test.irregular) << test.policy;
        EXPECT_STREQ(textio_reader_fault(reader.get()), "none") << "there is no record";
        EXPECT_EQ(textio_reader_policy(reader.get(), "keep"), TEXTIO_BAD_ARGUMENT) << "it comes too late";
    }
    const Reader reader = reader_of(layout, text);
    int has_record = 0;
    for (const char* const fault : {"none", "too_few_fields", "none", "too_many_fields"}) {
        ASSERT_EQ(textio_reader_next(reader.get(), &has_record), TEXTIO_OK);
        EXPECT_STREQ(textio_reader_fault(reader.get()), fault);
    }
}

} // namespace
