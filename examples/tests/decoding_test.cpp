#include "binary_data.hpp"
#include "character_set.hpp"
#include "decoding_source.hpp"
#include "string_bytes.hpp"
#include "text_input.hpp"
#include "user_error.hpp"

#include <gtest/gtest.h>
#include <unicode/localpointer.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
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
        {"UTF-32LE without a mark", "a\0\0\0;\0\0\0b\0\0\0\n\0\0\0"s, true, "UTF-32LE"},
        {"UTF-32BE without a mark", "\0\0\0a\0\0\0;\0\0\x04\x31\0\0\0\n"s, true, "UTF-32BE"},
        {"Russian in UTF-16LE without a mark", "\x1C\x04\x3E\x04\x41\x04\x3A\x04\x32\x04\x30\x04;\0\x43\x04\x30\x04\n\0"s, true,
         "UTF-16LE"},
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
        {"one Japanese word that would begin with a quotation mark", "sum \x93\x64\x98\x62,code\n1,2\n", true, "Shift_JIS"},
        {"one Japanese word that would be letters", "sum \x8F\x5A\x8F\x8A,code\n1,2\n", true, "Shift_JIS"},
        {"one word in quotation marks", "sum \x93old\x94,code\n1,2\n", true, "windows-1252"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(detect_character_set(test.head, test.is_whole_text).name, test.expected) << test.name;
    }
    EXPECT_EQ(known_character_set("latin1"), "ISO-8859-1");
    EXPECT_THROW(static_cast<void>(known_character_set("klingon-8")), UserError);
}

/// A table of `rows` rows in the character set `name`, with words out of `words`, which blanks part.
std::string table_in(const char* name, std::u16string_view words, std::size_t rows) {
    std::vector<std::u16string> list;
    for (std::size_t start = 0; start < words.size();) {
        const auto end = std::min(words.find(u' ', start), words.size());
        list.emplace_back(words.substr(start, end - start));
        start = end + 1;
    }
    std::u16string text;
    for (std::size_t row = 0; row < rows; ++row) {
        text += list[row * 3 % list.size()] + u";12.5;2024-03-01;" + list[row * 7 % list.size()] + u" " +
                list[(row + 1) % list.size()] + u"\n";
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(name, &status));
    ucnv_setFromUCallBack(converter.getAlias(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    std::string bytes(4 * text.size(), '\0');
    const auto length = ucnv_fromUChars(converter.getAlias(), bytes.data(), static_cast<std::int32_t>(bytes.size()), text.data(),
                                        static_cast<std::int32_t>(text.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status)) << name;
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

TEST(CharacterSet, is_the_one_in_which_the_bytes_read_like_words) {
    struct Case {
        const char* name;
        std::u16string_view words;
    };
    constexpr auto russian = u"Тверь Псков Орёл Вологда улица площадь количество сумма Ирина Дмитрий Кузнецов ещё";
    constexpr auto greek = u"Σπάρτη Κόρινθος Χαλκίδα Έδεσσα λεωφόρος πλατεία σύνολο Ελένη Δημήτρης Άννα έτος";
    constexpr auto hebrew = u"עכו צפת טבריה אילת נצרת כביש מספר יעקב שרה אברהם גיל כתובת";
    constexpr auto polish = u"Łomża Przemyśl Tarnów Kołobrzeg powiat gęś źródło Józef Bożena święto";
    constexpr auto german = u"Göppingen Füssen Görlitz Fußgänger Öl Ämter Stück Käse Tür Name Zahl";
    for (const auto& [name, words] : std::vector<Case>{
             {"windows-1251", russian},
             {"KOI8-U", russian},
             {"ISO-8859-5", russian},
             {"IBM866", russian},
             {"windows-1253", greek},
             {"ISO-8859-7", greek},
             {"windows-1255", hebrew},
             {"windows-1250", polish},
             {"ISO-8859-2", polish},
             {"windows-1252", german},
             {"IBM850", german},
             {"windows-1254", u"Iğdır Muş Düzce Ağrı çarşı sokağı tutarı Şükrü Işıl göl kış"},
             {"windows-1257", u"Biržai Kupiškis Šakiai Pėsčiųjų Ąžuolas vertė įmonė ūkis žemė"},
             {"windows-1256", u"الموصل البصرة مكة حمص شارع رقم يوسف خالد العدد التاريخ"},
             {"Shift_JIS", u"仙台 広島 長崎 住所 番号 山本 ありがとう データ"},
             {"GB18030", u"重庆 长沙 青岛 地址 号码 刘洋 公司 编号"},
             {"EUC-KR", u"제주 전주 청주 주소 번호 정민수 회사 도로"},
             {"Big5", u"基隆 新竹 臺南 花蓮 地址 號碼 張先生 公司 編號"},
             {"EUC-JP", u"仙台 広島 長崎 住所 番号 山本 ありがとう データ"},
         }) {
        for (const std::size_t rows : {30U, 200U}) {
            const std::string bytes = table_in(name, words, rows);
            const CharacterSet found = detect_character_set(bytes, true);
            // Others can decode all that there is alike.
            EXPECT_EQ(decode(bytes, found.name.c_str(), 4096, 4096), decode(bytes, name, 4096, 4096))
                << name << " for " << found.name;
            EXPECT_EQ(found.rival, "") << name << ", " << rows << " rows";
        }
    }
    EXPECT_EQ(detect_character_set(table_in("ISO-8859-8", hebrew, 30), true).name, "windows-1255");
}

TEST(CharacterSet, is_doubtful_where_little_tells) {
    EXPECT_EQ(detect_character_set("caf\xE9,\xE9t\xE9,ann\xE9"
                                   "e\n",
                                   true)
                  .rival,
              "");
    for (const char* text : {"a_\xFF\xFF_b\n", "10 kg/m\xB3\n"}) {
        EXPECT_NE(detect_character_set(text, true).rival, "") << text;
    }
}

TEST(BinaryData, is_told_from_text) {
    struct Case {
        const char* name;
        std::string head;
        const char* kind; ///< part of it, none for text
    };
    std::string noise;
    for (unsigned state = 1; noise.size() < 400;) {
        state = state * 1103515245U + 12345U;
        noise += static_cast<char>(state >> 16U);
    }
    for (const auto& [name, head, kind] : std::vector<Case>{
             {"PNG", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\6\0\0\0"s, "PNG image data"},
             {"zip that only stores",
              "PK\3\4\x14\0\0\0\0\0\0\0!\0\0\0\0\0\0\0\0\0\0\0\0\0\5\0\0\0a.csv"s + std::string(9000, 'a'), "Zip archive data"},
             {"xz",
              "\xFD"
              "7zXZ\0\0\4\xE6\xD6\xB4\x46\2\0!\1"s,
              "XZ compressed data"},
             {"zstd", "\x28\xB5\x2F\xFD\4\x58\x21\0\0a;b\n"s, "Zstandard compressed data"},
             {"ELF",
              "\x7F"
              "ELF\2\1\1\0\0\0\0\0\0\0\0\0\3\0\x3E\0\1\0\0\0"s,
              "ELF"},
             {"noise", noise, "binary data"},
             {"zeros", std::string(100, '\0'), "binary data"},
             {"text", "a;b\n1;2\n", ""},
             {"empty", "", ""},
             {"zeros as delimiters", "ab\0cd\0ef\nab\0cd\0ef\n"s, ""},
             {"separators of their own",
              "ab\x1F"
              "cd\x1E\nab\x1F"
              "cd\x1E\n",
              ""},
             {"the end of DOS files", "a;b\r\n\x1A", ""},
             {"a log that lost power", "12:00;on\n12:01;off\n" + std::string(20, '\0'), ""},
             {"high bytes", "\xCF\xF0\xE8\xE2\xE5\xF2;\xFF\n", ""},
         }) {
        const std::string found = binary_kind(head);
        EXPECT_TRUE(*kind != '\0' ? found.starts_with(kind) : found.empty()) << name << ": " << found;
    }
    EXPECT_THROW(static_cast<void>(detect_character_set(noise, false)), UserError);
    EXPECT_EQ(TextInput(std::make_unique<StringBytes>("a;b\1\2\3\4\5\n"), "UTF-8", {u"\n"}).text().size, 9U);
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
