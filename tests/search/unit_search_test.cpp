#include "search/unit_search.hpp"

#include "search/punctuation_search.hpp"
#include "search/search_walk.hpp"
#include "support/plain_search.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <cctype>
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

/// All units that there are, wherever a block begins among them.
TEST(UnitSearch, TellsEveryUnitFromEveryOther) {
    std::u16string all;
    for (int unit = 0; unit < 0x10000; ++unit) {
        all.push_back(static_cast<char16_t>(unit));
    }
    for (const std::u16string& units : sets) {
        const UnitSearch search(units);
        for (const std::size_t offset : {0U, 1U, 37U}) {
            const Field text(all.data() + offset, all.size() - offset);
            for (std::size_t at = 0, hit = 0; at <= text.size; at = hit + 1) {
                hit = search.next(text, at);
                ASSERT_EQ(hit, test::plain_next(search.set(), text, at)) << test::shown(units) << " behind " << offset;
            }
        }
    }
    for (const std::u16string_view known : {u"", u" \x1A\x7F", u"!#%&'*+,-./"}) {
        textio::detection::PunctuationSearch search(known);
        const char16_t* const end = all.data() + all.size();
        const char16_t* at = search.next(all.data(), end);
        for (int unit = 0; unit < 0x10000; ++unit) {
            const bool is_letter_or_digit = std::isalnum(unit) != 0 && unit < 0x80;
            const bool is_known = known.find(static_cast<char16_t>(unit)) != std::u16string_view::npos;
            if (unit == 0xFFFF || (unit < 0x80 && !is_letter_or_digit && !is_known)) {
                ASSERT_EQ(at, all.data() + unit);
                at = search.next(at + 1, end);
            }
        }
        EXPECT_EQ(at, end);
    }
}

/// The stops outside quoted parts, each part found by looking at one unit after the other, up to the
/// first quote that does not open one where it may.
std::vector<std::size_t> plain_unquoted_stops(std::u16string_view text, std::size_t from) {
    std::vector<std::size_t> stops;
    bool may_open = true;
    for (std::size_t at = from; at < text.size(); ++at) {
        if (text[at] == u'"') {
            if (!may_open) {
                stops.push_back(at);
                return stops;
            }
            at = text.find(u'"', at + 1);
            if (at == std::u16string_view::npos) {
                return stops;
            }
        }
        const bool is_stop = text[at] == u',' || text[at] == u'\n';
        may_open = is_stop || text[at] == u'"';
        if (is_stop) {
            stops.push_back(at);
        }
    }
    return stops;
}

TEST(UnquotedWalk, FindsTheStopsOutsideQuotedParts) {
    const UnitSearch stops(u",\n\"");
    const UnitSearch quotes(u"\"");
    std::mt19937 random(3);
    const std::vector<std::u16string> parts{u"x", u",", u",\"", u"\",", u"\"\"", u"\n", u"\"a,b\"", u"\"\n\"", u"yyyyyyyyyyyy"};
    std::size_t irregular = 0;
    for (int round = 0; round < 3000; ++round) {
        std::u16string text;
        const std::size_t least = random() % 400;
        while (text.size() < least) {
            text += random() % 200 == 0 ? u"\"" : random() % 3 == 0 ? parts[random() % parts.size()] : u",\"z,z\"\"\"";
        }
        const char16_t* const end = text.data() + text.size();
        UnquotedWalk walk({stops, quotes}, text.data(), end);
        for (std::size_t from = 0; from < text.size();) {
            const std::vector<std::size_t> expected = plain_unquoted_stops(text, from);
            const std::size_t wanted = expected.empty() ? 1 : 1 + random() % expected.size();
            const char16_t* found = walk.next(text.data() + from);
            for (std::size_t i = 0; i < wanted; ++i) {
                ASSERT_EQ(found, i < expected.size() ? text.data() + expected[i] : end) << test::shown(text) << " from " << from;
                found = i + 1 < wanted ? walk.next() : found;
            }
            if (found == end || *found == u'"') {
                irregular += found == end ? 0 : 1;
                break;
            }
            from = static_cast<std::size_t>(found - text.data()) + 1;
        }
    }
    EXPECT_GT(irregular, 300U);
}

} // namespace
