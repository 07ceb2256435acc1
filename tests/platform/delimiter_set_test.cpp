#include "textio/platform/delimiter_set.hpp"

#include "support/text.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using namespace textio;

TEST(DelimiterSet, FindsInManyStringsTheLongestThatFits) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        const auto word = [&random](std::size_t longest) {
            std::u16string units(random() % longest, u'a');
            for (char16_t& unit : units) {
                unit = u"ab\uFFFF"[random() % 3];
            }
            return units;
        };
        std::vector<std::u16string> strings(random() % 60);
        std::generate(strings.begin(), strings.end(), [&] { return word(7); });
        const std::u16string text = word(40);
        const auto set = get_or_create_delim(strings);
        for (std::size_t position = 0; position <= text.size() + 1; ++position) {
            const auto rest = std::u16string_view(text).substr(std::min(position, text.size()));
            std::size_t longest = 0;
            for (const std::u16string& string : strings) {
                longest = rest.starts_with(string) ? std::max(longest, string.size()) : longest;
            }
            ASSERT_EQ(set->match_at(Field(text), position), set->single && rest.empty() ? set->match_at(Field(), 0) : longest)
                << test::shown(text) << " at " << position << " in round " << round;
        }
    }
}

TEST(DelimiterSet, LongestFirstAndEachOnce) {
    const auto set = get_or_create_delim({u"", u"\r", u"ab", u"\r\n", u"ab", u"\n"});
    EXPECT_EQ(set->strings, (std::vector<std::u16string>{u"ab", u"\r\n", u"\r", u"\n"}));
    EXPECT_EQ(std::u16string(set->first_units.begin(), set->first_units.end()), u"\n\ra");
    const std::u16string text = u"a\r\nab\rx";
    std::vector<std::size_t> lengths;
    for (std::size_t position = 0; position <= text.size(); ++position) {
        lengths.push_back(set->match_at(Field(text), position));
    }
    EXPECT_EQ(lengths, (std::vector<std::size_t>{0, 2, 1, 2, 0, 1, 0, 0}));
    const auto end = get_or_create_delim({u"\uFFFF"});
    EXPECT_TRUE(end->single);
    EXPECT_EQ(end->match_at(Field(text), 99), 1U) << "past the end stands the end of text";
    const auto none = get_or_create_delim({u""});
    EXPECT_EQ(none->match_at(Field(text), 0), 0U);
    EXPECT_EQ(none->first_units.data(), nullptr);
}

} // namespace
