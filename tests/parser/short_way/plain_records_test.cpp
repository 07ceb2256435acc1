#include "parser/reading.hpp"
#include "support/odd_options.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using namespace test;
using namespace textio::parser;

class RandomReads {
public:
    /// Reads many random texts under random options with and without the short way.
    template <class Reader>
    void compare() {
        for (int round = 0; round < 3000; ++round) {
            const options options = odd_options([this](std::size_t count) { return random_() % count; });
            const std::u16string text = some_text();
            const Request request{.rows = one_of<std::size_t>({SIZE_MAX, SIZE_MAX, 3, 1}),
                                  .lines = one_of<std::size_t>({SIZE_MAX, SIZE_MAX, 4}),
                                  .x_is_blank = random_() % 4 == 0};
            Reader plain(options);
            Reader full(options);
            full.has_plain_records = false;
            ASSERT_EQ(reading_with(plain, text, options, request), reading_with(full, text, options, request))
                << shown(text) << " round " << round;
            used_ += plain.has_plain_records ? 1 : 0;
        }
        EXPECT_GT(used_, 1000) << "the short way was hardly ever open";
    }

private:
    template <class T>
    T one_of(const std::vector<T>& values) {
        return values[random_() % values.size()];
    }

    /// Quoted parts that begin right behind a delimiter or line ending, and now and then other quotes.
    std::u16string quoted_text() {
        const std::vector<std::u16string> usual{u"\"a,b\",",     u"\"\"\"x\"\n", u"\"a\nb\",", u"\"\",",
                                                u"xxxxxxxxxxx,", u",",           u"\r\n"};
        const std::vector<std::u16string> odd{
            u" \"a,b\",", u"x\"y,", u"\"a\"b\",\n", u"\"\uFFFF,\"\uFFFF,",
            u"\n#\"\n",   u"\"",    u"\n \n",       u"\n" + std::u16string(2'200, u'x') + u"\n"};
        const std::size_t odd_share = one_of<std::size_t>({5, 30, 200});
        const std::size_t units = random_() % one_of<std::size_t>({40, 200, 700});
        std::u16string text;
        while (text.size() < units) {
            const std::vector<std::u16string>& parts = random_() % odd_share == 0 ? odd : usual;
            text += parts[random_() % parts.size()];
        }
        return text;
    }

    std::u16string some_text() {
        if (random_() % 4 == 0) {
            return quoted_text();
        }
        const bool is_blank = random_() % 4 == 0;
        const std::u16string odd = is_blank ? u"\n\r\n,xx#" : u",,,;\n\n\r \t\"\"##\u00A0\uFFFF";
        const char16_t usual = is_blank ? u' ' : one_of<char16_t>({u'x', u'x', u',', u'\n'});
        const std::size_t odd_share = usual == u',' || usual == u'\n' ? 2000 : one_of<std::size_t>({2, 4, 12});
        const std::size_t odd_units = odd.size() - one_of<std::size_t>({0, 1, 1, 1, 5});
        std::u16string text(random_() % (odd_share == 2000 ? 12'000 : one_of<std::size_t>({12, 90, 400})), u'x');
        for (char16_t& unit : text) {
            unit = random_() % odd_share == 0 ? odd[random_() % odd_units] : usual;
        }
        return text;
    }

    std::mt19937 random_{7};
    int used_ = 0;
};

/// What the short way leaves of a text.
template <class Reader>
std::u16string left_by(options options, std::u16string_view text) {
    const Reader reader(options);
    textio::Field view(text);
    ReadCounts counts;
    textio::FieldArray array;
    SampleWriter sample(array, view, SIZE_MAX);
    const LineShape shape{.blanks = reader.blanks,
                          .line_ends = reader.guarded_line_ends,
                          .comment_start = {},
                          .unplain_starts = unplain_starts(reader),
                          .keeps_empty_lines = true,
                          .blank_lines_are_empty = Reader::blank_lines_are_empty};
    PlainRecords records(shape, {SIZE_MAX, SIZE_MAX}, view, counts, sample);
    records.resume(false);
    take_plain_records(reader, records);
    records.pause();
    return std::u16string(view.view());
}

TEST(PlainRecords, AreNotLeftToTheFullSetOfRules) {
    const std::u16string_view text = u"a,b\n\r\n,\"c,\nd\" ,\n\n  e \rf";
    EXPECT_EQ(left_by<LineRecordReader>(comma_options(), text), u"");
    EXPECT_EQ(left_by<DelimitedRecordReader>(comma_options(), text), u"");
    EXPECT_EQ(left_by<FixedWidthRecordReader>({.field_widths = {2, 3}}, text), u"");
    const options aligned{.delimiters = {u" ", u"\t"},
                          .whitespace = u"",
                          .consecutive_delimiters_rule = consecutive_delimiters::merge,
                          .leading_delimiters_rule = leading_delimiters::skip,
                          .trailing_delimiters_rule = trailing_delimiters::drop};
    EXPECT_EQ(left_by<DelimitedRecordReader>(aligned, u" a  b\n\nc \td  \n  e"), u"");
}

TEST(PlainRecords, AreReadAsByTheFullSetOfRules) {
    RandomReads().compare<LineRecordReader>();
    RandomReads().compare<DelimitedRecordReader>();
    RandomReads().compare<FixedWidthRecordReader>();
}

} // namespace
