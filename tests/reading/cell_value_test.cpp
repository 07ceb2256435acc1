#include "support/text.hpp"
#include "textio/reading.hpp"

#include <gtest/gtest.h>

namespace {

using namespace textio;

struct ValueCase {
    const char* name;
    std::u16string cell;
    std::u16string value;
    bool is_view = true;
    std::uint8_t reader = parser::record_reader::delimited;
};

const std::vector<ValueCase> value_cases{
    {"nothing", u"", u""},
    {"blanks", u" \t", u""},
    {"blanks around", u" a b\t", u"a b"},
    {"quotes around", u" \" a\" ", u" a"},
    {"nothing in quotes", u"\"\"", u""},
    {"doubled quotes", u"\"\"\"a\"\"\"\"b\"", u"\"a\"\"b", false},
    {"text behind the quotes", u"\"a\"\"\"b\"\"", u"a\"b\"\"", false},
    {"an open quote", u"\"a", u"a"},
    {"an open quote behind a doubled one", u"\"a\"\"", u"a\"", false},
    {"a quote alone", u"\"", u""},
    {"quotes in the middle", u"a\"\"b\"", u"a\"\"b\""},
    {"a line: framed", u"\"a\"\"b\"", u"a\"b", false, parser::record_reader::line},
    {"a line: not framed", u"\"a\" b ", u"\"a\" b", true, parser::record_reader::line},
    {"a width: an open quote", u"\"a", u"\"a", true, parser::record_reader::fixed_width},
};

TEST(CellValue, IsWhatTheCellMeans) {
    for (const ValueCase& c : value_cases) {
        parser::options options;
        options.reader_kind = c.reader;
        std::u16string buffer = u"before";
        const std::u16string_view value = reading::cell_value(Field(c.cell), options, buffer);
        EXPECT_EQ(test::shown(value), test::shown(c.value)) << c.name;
        EXPECT_EQ(buffer == u"before", c.is_view) << c.name;
    }
}

} // namespace
