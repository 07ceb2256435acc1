#include "parser/boundary_scanner.hpp"
#include "parser/search_walk.hpp"
#include "parser/unit_search.hpp"
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
    u"",     u",",        u"\r\n,\"",      u"abcdefgh",      u"abcdefghi", std::u16string(1, u'\0'),
    u"\xFF", u"\uFFFF\n", u"\u0101\u8001", u"\xD800,\xDC00",
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
        std::size_t walked = 0;
        SearchWalk walk(inside, units.get(), units.get() + size);
        for (std::size_t from = random() % 70; from <= size; from += random() % 40) {
            const std::size_t found = inside.next(text, from);
            ASSERT_EQ(found, plain_next(set, text, from))
                << test::shown(set.units()) << " from " << from << " in " << test::shown(text.view());
            if (from >= walked) {
                walked = found;
                ASSERT_EQ(walk.next(units.get() + from), units.get() + found) << "walking";
            }
            const std::size_t other = outside.next(text, from);
            ASSERT_EQ(inside.skip(text, from), other);
            ASSERT_EQ(outside.skip(text, from), found);
            ASSERT_EQ(other, plain_skip(set, text, from))
                << test::shown(set.units()) << " from " << from << " in " << test::shown(text.view());
        }
    }
}

TEST(BoundaryScanner, BarriersGoFirst) {
    struct Case {
        const char* name;
        std::vector<std::u16string> ends;
        std::vector<std::u16string> barriers;
        std::u16string text;
        std::size_t from;
        std::size_t at;
        std::size_t length;
    };
    const std::vector<Case> cases{
        {"an end", {u","}, {u"\n"}, u"ab,c", 0, 2, 1},
        {"a barrier", {u","}, {u"\n"}, u"ab\n,", 0, 2, 0},
        {"both at one place", {u"\n"}, {u"\n"}, u"ab\n", 0, 2, 0},
        {"a barrier that is longer", {u"\r"}, {u"\r\n"}, u"a\rb\r\n", 2, 3, 0},
        {"its first unit is an end", {u"\r"}, {u"\r\n"}, u"a\rb\r\n", 0, 1, 1},
        {"a lone first unit", {u"::"}, {}, u"a:b::", 0, 3, 2},
        {"nothing", {u","}, {u"\n"}, u"abc", 1, 3, 0},
        {"past the end", {u","}, {}, u"abc", 5, 5, 0},
        {"empty sets", {}, {}, u"a\uFFFFb", 0, 3, 0},
        {"empty sets at the end of text", {}, {}, u"a\uFFFFb", 1, 1, 0},
        {"end of text behind a lone first unit", {u"::"}, {}, u"a:\uFFFF::", 0, 2, 0},
        {"end of text elsewhere", {u"::"}, {}, u"a\uFFFF::", 0, 2, 2},
        {"end of text as a stop", {u"\uFFFF"}, {}, u"ab\uFFFF", 0, 2, 0},
    };
    for (const Case& c : cases) {
        const Boundary found = BoundaryScanner(c.ends, c.barriers).find(Field(c.text), c.from);
        EXPECT_EQ(found.at, c.at) << c.name;
        EXPECT_EQ(found.length, c.length) << c.name;
    }
}

} // namespace
