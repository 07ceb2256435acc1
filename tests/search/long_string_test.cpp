#include "search/guarded_delim.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using namespace textio::parser;
using textio::Field;

/// Strings and texts are made of few parts, so that nearly every place is nearly a match.
TEST(LongString, IsFoundWhereverItStands) {
    std::mt19937 random(7);
    std::size_t matches = 0;
    for (int round = 0; round < 300; ++round) {
        const std::u16string part = std::u16string(1 + random() % 3, u'a') + (random() % 2 == 0 ? u"b" : u"");
        const auto odd_run = [&](std::size_t least) {
            std::u16string units;
            while (units.size() < least) {
                units += random() % 20 == 0 ? u"ab" : part;
            }
            return units;
        };
        const std::vector<std::u16string> strings{odd_run(LongString::least_units), odd_run(90), odd_run(5)};
        std::u16string text;
        while (text.size() < 600) {
            text += random() % 3 == 0 ? strings[random() % 3] : odd_run(random() % 50);
        }
        const auto set = textio::get_or_create_delim(strings);
        const GuardedDelim guarded(strings);
        const bool goes_back = random() % 4 == 0;
        for (std::size_t at = 0; at <= text.size(); at += random() % 3) {
            const std::size_t expected = set->match_at(Field(text), at);
            ASSERT_EQ(guarded.match_at(Field(text), at), expected) << test::shown(text) << " at " << at << " in round " << round;
            matches += expected >= LongString::least_units ? 1 : 0;
            at -= goes_back && random() % 300 == 0 ? std::min<std::size_t>(at, random() % 200) : 0;
        }
    }
    EXPECT_GT(matches, 500U);
}

} // namespace
