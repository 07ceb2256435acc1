#include "character_set.hpp"
#include "decoding_source.hpp"
#include "string_bytes.hpp"
#include "text_input.hpp"
#include "user_error.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace detect_layout;
using namespace std::string_literals;

struct Decoded {
    std::u16string text;
    std::size_t undecodable = 0;
    bool operator==(const Decoded&) const = default;
};

/// Decodes `bytes`, taken in pieces of `piece_bytes`, by reading `units` at a time.
Decoded decode(const std::string& bytes, const char* character_set, std::size_t piece_bytes, std::size_t units) {
    StringBytes stream(bytes.substr(bytes.size() / 3));
    DecodingSource source(stream, bytes.substr(0, bytes.size() / 3), character_set, piece_bytes);
    Decoded decoded;
    std::vector<char16_t> room(units);
    for (std::size_t count = units; count == units;) {
        count = source.read(room.data(), room.data() + units);
        decoded.text.append(room.data(), count);
    }
    decoded.undecodable = source.undecodable();
    return decoded;
}

TEST(DecodingSource, gives_the_same_text_whatever_the_pieces) {
    struct Case {
        const char* name;
        std::string bytes;
        const char* character_set;
        Decoded expected;
    };
    const std::vector<Case> cases{
        {"empty", "", "UTF-8", {u"", 0}},
        {"mark alone", "\xEF\xBB\xBF", "UTF-8", {u"", 0}},
        {"mark of UTF-8", "\xEF\xBB\xBF"s + "ab", "UTF-8", {u"ab", 0}},
        {"mark of UTF-16LE", "\xFF\xFE"s + "a\0b\0"s, "UTF-16LE", {u"ab", 0}},
        {"mark of UTF-16BE", "\xFE\xFF\0a\0b"s, "UTF-16BE", {u"ab", 0}},
        {"mark of UTF-32BE", "\0\0\xFE\xFF\0\0\0a"s, "UTF-32BE", {u"a", 0}},
        {"mark with the order open", "\xFE\xFF\0a"s, "UTF-16", {u"a", 0}},
        {"mark that is no mark", "a\xEF\xBB\xBF", "UTF-8", {u"a\uFEFF", 0}},
        {"surrogate pairs", "\xF0\x9F\x8D\x8B,\xF0\x9F\x8D\x8B", "UTF-8", {u"🍋,🍋", 0}},
        {"cut short at the end", "ab\xE2\x82", "UTF-8", {u"ab\uFFFD", 1}},
        {"bad in the middle", "a\xFF,\xC3(", "UTF-8", {u"a\uFFFD,\uFFFD(", 2}},
        {"NUL and U+FFFF", "a\0\xEF\xBF\xBFz"s, "UTF-8", {u"a\0\uFFFFz"s, 0}},
        {"lone surrogate", "\x3D\xD8"s + "a\0"s, "UTF-16LE", {u"\uFFFDa", 1}},
        {"half a unit", "a\0b"s, "UTF-16LE", {u"a\uFFFD", 1}},
        {"one byte each", "\x80 \xE9", "windows-1252", {u"€ é", 0}},
        {"two bytes each", "\x83\x65\x83\x58\x83", "Shift_JIS", {u"テス\uFFFD", 1}},
    };
    static constexpr std::size_t sizes[] = {1, 2, 3, 4096};
    for (const Case& test : cases) {
        for (const std::size_t piece_bytes : sizes) {
            for (const std::size_t units : sizes) {
                const auto decoded = decode(test.bytes, test.character_set, piece_bytes, units);
                EXPECT_EQ(decoded, test.expected) << test.name << ", pieces of " << piece_bytes << ", reads of " << units;
            }
        }
    }
}

TEST(CharacterSet, is_found_from_the_bytes) {
    struct Case {
        const char* name;
        std::string head;
        bool is_whole_text;
        const char* expected;
    };
    const std::string umlauts = "Stra\xDF"
                                "e;M\xFCller;Gr\xFC\xDF"
                                "e\nK\xF6ln;\xC4rger;sch\xF6n\n";
    const std::vector<Case> cases{
        {"empty", "", true, "UTF-8"},
        {"ASCII", "a,b\n1,2\n", true, "UTF-8"},
        {"UTF-8 cut inside a character", "na\xC3\xAFve,caf\xC3", false, "UTF-8"},
        {"UTF-8 with one fault", "\xC3\xA4,\xC3\xB6,\xC3\xBC,\xC3\x9F,\xC3\xA9,\xFF\n", true, "UTF-8"},
        {"mark of UTF-16BE", "\xFE\xFF\x04\x1F"s, true, "UTF-16BE"},
        {"mark of UTF-32LE", "\xFF\xFE\0\0a\0\0\0"s, true, "UTF-32LE"},
        {"UTF-16LE without a mark", "a\0,\0b\0\n\0"s, true, "UTF-16LE"},
        {"UTF-16BE without a mark", "\0a\0,\0b\0\n"s, true, "UTF-16BE"},
        {"NULs as delimiters", "ab\0cd\0ef\nab\0cd\0ef\n"s, true, "UTF-8"},
        {"German", umlauts, true, "windows-1252"},
        {"one byte that is not ASCII", "caf\xE9\n", true, "windows-1252"},
        {"the euro sign", "5 \x80\n", true, "windows-1252"},
        {"UTF-8 cut at its end", "caf\xC3", true, "windows-1252"},
        {"Japanese",
         "\x96\xBC\x91O,\x8F\x5A\x8F\x8A,\x93\x64\x98\x62\n\x93\x63\x92\x86,\x93\x8C\x8B\x9E,"
         "\x82\xA0\x82\xE8\x82\xDC\x82\xB7,\x82\xB1\x82\xEA\x82\xCD\n",
         true, "Shift_JIS"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(detect_character_set(test.head, test.is_whole_text), test.expected) << test.name;
    }
    EXPECT_EQ(known_character_set("latin1"), "ISO-8859-1");
    EXPECT_THROW(static_cast<void>(known_character_set("klingon-8")), UserError);
}

/// Text without end.
class Endless : public ByteSource {
    std::size_t read(char* begin, std::size_t size) override {
        for (std::size_t i = 0; i < size; ++i) {
            begin[i] = line_[place_++ % line_.size()];
        }
        return size;
    }
    std::string line_ = "12;north;3.5\n";
    std::size_t place_ = 0;
};

TEST(TextInput, reads_only_the_first_whole_lines_of_a_long_text) {
    const TextInput input(std::make_unique<Endless>(), "", {u"\n"});
    constexpr std::size_t limit = 4'194'304;
    EXPECT_EQ(input.text().size, limit - limit % 13);
    EXPECT_TRUE(input.is_cut());
    EXPECT_FALSE(TextInput(std::make_unique<StringBytes>("a\nb"), "", {u"\n"}).is_cut());
}

} // namespace
