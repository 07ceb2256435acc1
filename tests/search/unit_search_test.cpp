#include "search/unit_search.hpp"

#include "search/search_walk.hpp"
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

} // namespace
