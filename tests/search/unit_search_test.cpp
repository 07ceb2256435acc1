#include "search/guarded_delim.hpp"
#include "search/search_walk.hpp"
#include "search/unit_search.hpp"
#include "support/plain_search.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace {

using namespace textio::parser;
using textio::Field;

// Sets that are narrowed to bytes, that can't be, that are looked up, and none at all.
const std::vector<std::u16string> sets{
    u"",
    u",",
    u"\r\n,\"",
    u"abcdefgh",
    u"abcdefghi",
    std::u16string(1, u'\0'),
    u"\xFF",
    u"\uFFFF\n",
    u"\u0101\u8001",
    u"\xD800,\xDC00",
    u"\u0100\u0101\u0102\u0103\u0104\u0105\u2C2C\u8001\xD801",
};

TEST(UnitSearch, GivesWhatThePlainLoopGives) {
    std::mt19937 random(1);
    using namespace std::string_literals;
    const std::u16string alphabet = u"ab,\r\n\"\0\xFF\u0101\u2C2C\u8001\uFFFF\xD800\xDC00zzzz"s;
    for (int round = 0; round < 400; ++round) {
        const std::size_t size = random() % 300;
        // Of exactly the text's size, so that a sanitizer sees any read past either end.
        const auto units = std::make_unique<char16_t[]>(size);
        const std::size_t density = 1 + random() % 20;
        for (std::size_t i = 0; i < size; ++i) {
            units[i] = random() % density == 0 ? alphabet[random() % alphabet.size()] : u'x';
        }
        const Field text(units.get(), size);
        const UnitSet set(sets[random() % sets.size()]);
        const UnitSearch inside(set.units());
        const UnitSearch outside(set.units(), UnitSearch::Wanted::outside);
        SCOPED_TRACE(test::shown(set.units()) + " in " + test::shown(text.view()));
        std::size_t walked = 0;
        SearchWalk walk(inside, units.get(), units.get() + size);
        for (std::size_t from = random() % 70; from <= size; from += random() % 40) {
            const std::size_t found = inside.next(text, from);
            ASSERT_EQ(found, test::plain_next(set, text, from)) << from;
            if (from >= walked) {
                ASSERT_EQ(walk.next(units.get() + from), units.get() + found) << "walking";
                walked = test::plain_next(set, text, std::min(found + 1, size));
                ASSERT_EQ(walk.next(), units.get() + walked) << "walking on";
                walked += 1;
            }
            const std::size_t other = test::plain_skip(set, text, from);
            ASSERT_EQ(outside.next(text, from), other) << from << " outside";
            ASSERT_EQ(inside.skip(text, from), other) << from << " behind a run";
            ASSERT_EQ(outside.skip(text, from), found) << from << " behind a run outside";
        }
    }
}

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
        const GuardedDelim guarded(set);
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
