#include "textio/utf8.hpp"

#include "support/text.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

using namespace textio::utf8;

struct Case {
    const char* name;
    std::string bytes;
    std::u16string text;
    std::size_t replaced = 0;
    bool had_mark = false;
};

const std::vector<Case> cases{
    {"nothing", "", u""},
    {"each length", "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x9A\xA2z", u"aä€\xD83D\xDEA2z"},
    {"the least and the most of each length", "\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
     u"\x80\x7FF\x800\xFFFF\xD800\xDC00\xDBFF\xDFFF"},
    {"beside the surrogates", "\xED\x9F\xBF\xEE\x80\x80", u"\xD7FF\xE000"},
    {"zero", std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    {"a surrogate", "\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD", 3},
    {"longer than needed", "\xC0\x80\xE0\x9F\xBF\xF0\x8F\xBF\xBF", std::u16string(9, 0xFFFD), 9},
    {"beyond the last character", "\xF4\x90\x80\x80\xF5\xFF", std::u16string(6, 0xFFFD), 6},
    {"starts of sequences",
     "a\xF1\x80\x80\xE1\x80\xC2"
     "b\x80"
     "c\x80\xBF"
     "d",
     u"a\xFFFD\xFFFD\xFFFD"
     u"b\xFFFD"
     u"c\xFFFD\xFFFD"
     u"d",
     6},
    {"a byte order mark", "\xEF\xBB\xBFx", u"x", 0, true},
    {"a second one is text", "\xEF\xBB\xBF\xEF\xBB\xBFx", u"\xFEFFx", 0, true},
    {"half a byte order mark", "\xEF\xBB", u"\xFFFD", 1},
    {"long runs around one character", std::string(40, 'q') + "\xC3\x9F" + std::string(23, 'r') + "\xE2\x82",
     std::u16string(40, u'q') + u"ß" + std::u16string(23, u'r') + u"\xFFFD", 1},
};

/// Another way: what a first byte leads to is found by trying all well-formed sequences of its
/// length, written as numbers, and replacing as long as any could still come.
Decoded by_definition(std::string_view bytes, std::vector<std::size_t>* offsets = nullptr) {
    Decoded decoded;
    decoded.had_mark = bytes.starts_with("\xEF\xBB\xBF");
    struct Row { // of the table of well-formed sequences: the range of each byte
        std::array<unsigned char, 2> ranges[4];
        std::size_t size;
    };
    static const Row rows[] = {
        {{{0x00, 0x7F}}, 1},
        {{{0xC2, 0xDF}, {0x80, 0xBF}}, 2},
        {{{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}}, 3},
        {{{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}}, 3},
        {{{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}}, 3},
        {{{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}}, 3},
        {{{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}, 4},
        {{{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}, 4},
        {{{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}}, 4},
    };
    static const unsigned char lead_bits[] = {0x7F, 0x1F, 0x0F, 0x07};
    for (std::size_t at = decoded.had_mark ? 3 : 0; at < bytes.size();) {
        std::size_t best = 0;
        char32_t character = 0xFFFD;
        for (const Row& row : rows) {
            std::size_t fit = 0;
            char32_t bits = 0;
            while (fit < row.size && at + fit < bytes.size()) {
                const auto byte = static_cast<unsigned char>(bytes[at + fit]);
                if (byte < row.ranges[fit][0] || byte > row.ranges[fit][1]) {
                    break;
                }
                bits = fit == 0 ? byte & lead_bits[row.size - 1] : bits * 64 + byte % 64;
                ++fit;
            }
            best = std::max(best, fit);
            character = fit == row.size ? bits : character;
        }
        const std::size_t before = decoded.text.size();
        if (character > 0xFFFF) {
            decoded.text += static_cast<char16_t>(0xD7C0 + character / 0x400);
            decoded.text += static_cast<char16_t>(0xDC00 + character % 0x400);
        } else {
            decoded.text += static_cast<char16_t>(character);
        }
        const bool is_replaced = character == 0xFFFD && bytes.substr(at, 3) != "\xEF\xBF\xBD";
        decoded.replaced += is_replaced ? 1 : 0;
        if (offsets != nullptr) {
            offsets->resize(offsets->size() + decoded.text.size() - before, at);
        }
        at += std::max<std::size_t>(best, 1);
    }
    return decoded;
}

std::string shown(const Decoded& decoded) {
    return test::shown(decoded.text) + " replaced " + std::to_string(decoded.replaced) + (decoded.had_mark ? " mark" : "");
}

struct Failure {};

/// Delivers bytes in small pieces, and fails once before the piece of a number.
class Pieces : public ByteSource {
public:
    Pieces(std::string_view bytes, std::size_t piece, std::size_t failing = SIZE_MAX)
        : rest_(bytes), piece_(piece), failing_(failing) {}

    std::size_t read(char* begin, char* end) override {
        if (reads_++ == failing_) {
            throw Failure();
        }
        const std::size_t count = std::min({piece_, rest_.size(), static_cast<std::size_t>(end - begin)});
        std::copy_n(rest_.begin(), count, begin);
        rest_.remove_prefix(count);
        return count;
    }

private:
    std::string_view rest_;
    std::size_t piece_;
    std::size_t failing_;
    std::size_t reads_ = 0;
};

/// All of the text of a source, read in ranges of `units`; after a failure once more.
Decoded drained(Source& source, std::size_t units) {
    Decoded decoded;
    std::u16string range(units, u'?');
    for (std::size_t count = units; count == units;) {
        try {
            count = source.read(range.data(), range.data() + units);
        } catch (const Failure&) {
            continue;
        }
        decoded.text.append(range, 0, count);
    }
    decoded.replaced = source.replaced();
    decoded.had_mark = source.had_mark();
    return decoded;
}

void expect_equal_ways(const std::string& bytes) {
    std::vector<std::size_t> offsets;
    const std::string expected = shown(by_definition(bytes, &offsets));
    ASSERT_EQ(shown(decode(bytes)), expected);
    offsets.push_back(bytes.size());
    for (std::size_t position = 0; position < offsets.size(); ++position) {
        ASSERT_EQ(byte_offset(bytes, position), offsets[position]) << position << " of " << expected;
    }
    for (const std::size_t piece : {1U, 2U, 5U, 1000U}) {
        for (const std::size_t units : {1U, 3U, 64U}) {
            Pieces pieces(bytes, piece, piece + units / 2);
            Source source(pieces);
            ASSERT_EQ(shown(drained(source, units)), expected) << piece << " bytes, " << units << " units";
        }
    }
}

TEST(Utf8, GivesTheTextOfAnyBytes) {
    for (const Case& c : cases) {
        const Decoded decoded = decode(c.bytes);
        EXPECT_EQ(test::shown(decoded.text), test::shown(c.text)) << c.name;
        EXPECT_EQ(decoded.replaced, c.replaced) << c.name;
        EXPECT_EQ(decoded.had_mark, c.had_mark) << c.name;
        for (std::size_t size = 0; size <= c.bytes.size(); ++size) {
            SCOPED_TRACE(c.name + std::string(" cut to ") + std::to_string(size));
            expect_equal_ways(c.bytes.substr(0, size));
        }
    }
}

TEST(Utf8, ReplacesInRandomBytesAsDefined) {
    std::mt19937 random(1);
    static const std::string likely = "\xEF\xBB\xBF\xC2\xDF\xE0\xED\xF0\xF4\x80\x8F\x90\x9F\xA0\xBF"
                                      "ab\n";
    for (int round = 0; round < 3000; ++round) {
        std::string bytes(random() % 70, ' ');
        for (char& byte : bytes) {
            byte = random() % 3 == 0 ? static_cast<char>(random() % 256) : likely[random() % likely.size()];
            byte = round % 2 == 0 && random() % 8 != 0 ? 'x' : byte;
        }
        expect_equal_ways(bytes);
    }
}

TEST(Utf8, KeepsPlacesOfALongText) {
    std::string bytes;
    for (int line = 0; bytes.size() < 80'000'000; ++line) {
        bytes += std::to_string(line) + "\xE2\x82\xAC\xFF" + std::string(300, 'x') + "\n";
    }
    const std::u16string text = decode(bytes).text;
    Pieces pieces(bytes, SIZE_MAX);
    Source source(pieces);
    const Decoded decoded = drained(source, 100'000);
    EXPECT_TRUE(decoded.text == text);
    EXPECT_EQ(source.place_before(0).bytes, 0U);
    for (std::size_t position = 0; position < text.size(); position += text.size() / 8) {
        const Place place = source.place_before(position);
        EXPECT_LE(place.units, position);
        EXPECT_LE(position - place.units, 300'000U);
        EXPECT_EQ(byte_offset(std::string_view(bytes).substr(place.bytes), position, place), byte_offset(bytes, position));
    }
}

} // namespace
