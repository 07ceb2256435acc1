#include "typedetection/field_text.hpp"

#include <string_view>
#include <tuple>
#include <vector>

namespace zentor::io::text::typedetection {
namespace {

using enum FieldClass;
using Options = TypeAnalyzerOptions;
using Texts = std::vector<std::u16string_view>;

FieldClass class_of(std::u16string_view text, const Options& options) {
    return TypeAnalyzer<false>(options).classify(textio::Field(text));
}

TEST(TypeAnalyzer, TellsNumbersApart) {
    // The classes by default, with a thousands separator, and with trimming to a number.
    const std::vector<std::tuple<Texts, FieldClass, FieldClass, FieldClass>> cases{
        {{u"12", u"-12", u"+12", u"1.", u".5", u"+.5", u" 12 "}, number, number, number},
        {{u".", u"+", u"+.", u"-", u"Infinity"}, text, text, text},
        {{u"1,000.5", u"1.000,5", u",1,,2,"}, text, number, number},
        {{u"1e5", u"1E5", u"1d5", u"1D-3", u"1e+5"}, number, number, number},
        {{u"1e", u"1e+", u"e5", u"1.2.3", u"12kg", u"$5", u"1 2", u"+-1"}, text, text, number},
        {{u"0x1F", u"0X1f", u"0x"}, hex_number, hex_number, hex_number},
        {{u"0b101", u"0B01", u"0b"}, binary_number, binary_number, binary_number},
        {{u"0xG", u"-0x1F", u"0b2", u"0x1,F", u"0x\u0141"}, text, text, number},
        {{u"5i", u"5j", u"1e5i", u"1.5.5i"}, number, number, number},
        {{u"1+2i", u"1-2j", u"2.5e3-1.5e-3j", u"1+i", u"1-j"}, number, number, number},
        {{u"5I", u"1+ 2i", u"1+2i3", u"1+2+3i", u"1++i", u"1ii"}, text, text, number},
        {{u"NaN", u"nan", u"+NaN", u"-nan", u"Inf", u"-Inf", u"+INF"}, number, number, number},
        {{u"NaN+1i", u"1+Infi"}, number, number, number},
    };
    for (const auto& [texts, plain, with_thousands, with_trimming] : cases) {
        for (const std::u16string_view text : texts) {
            EXPECT_EQ(class_of(text, {}), plain) << test::shown(text);
            EXPECT_EQ(class_of(text, {.thousands_separator = u','}), with_thousands) << test::shown(text);
            EXPECT_EQ(class_of(text, {.trim_non_numeric = true}), with_trimming) << test::shown(text);
        }
    }
}

TEST(TypeAnalyzer, FollowsItsOptions) {
    const Options untrimmed{.whitespace = u""};
    const Options missing{.treat_as_missing = {u"NA", u"-999"}};
    const std::vector<std::tuple<const char*, Options, Texts, FieldClass>> cases{
        {"decimal comma", {.decimal_separator = u','}, {u"1,5"}, number},
        {"point is no decimal comma", {.decimal_separator = u','}, {u"1.5", u"1:2:3.5"}, text},
        {"trimmed at the point", {.decimal_separator = u',', .trim_non_numeric = true}, {u"1.5"}, number},
        {"both separators", {.thousands_separator = u'.', .decimal_separator = u','}, {u"1.234.567,5"}, number},
        {"comma in a duration", {.decimal_separator = u','}, {u"1:2:3,5"}, duration},
        {"point in a date", {.decimal_separator = u','}, {u"31.12.1999"}, date},
        {"exponent that only trimming knows", {.exponent_characters = u"eE", .trim_non_numeric = true}, {u"5d3"}, text},
        {"thousands in a duration", {.thousands_separator = u','}, {u"1,000:30"}, text},
        {"blanks that nobody trims", untrimmed, {u" 12 "}, text},
        {"quotes go in any case", untrimmed, {u"\"12\""}, number},
        {"missing", missing, {u" \"NA\" ", u"NA ", u"-999"}, unknown},
        {"not quite missing", missing, {u"na", u"NA NA"}, text},
        {"no value", {}, {u"", u" \t ", u"\"\"", u"\" \""}, unknown},
        {"blanks in quotes", {}, {u" \" 12 \" "}, number},
        {"no digit of ours", {}, {u"\u0661", u"\u0662:\u0663"}, text},
        {"end of text inside", {}, {u"1\xFFFF"}, text},
        {"short durations", {}, {u"12:30", u"-1:30", u"99:99", u"1:2.5"}, short_duration},
        {"durations", {}, {u"12:30:45", u"1:2:3.", u"+1:2:3", u"1:2:3:4", u"1:2:3:4.5"}, duration},
        {"too many or too few colons", {}, {u"1:2:3:4:5", u"1::2", u":30", u"12:"}, text},
        {"points astray", {}, {u"1:2.5:3", u"1:2:3.5.", u"1:.5"}, text},
        {"delimiters", {}, {u",", u"|", u";"}, delimiter_like},
        {"words", {}, {u":", u",,", u"x", u"nane", u"+-NaN", u"+NaT", u"NaTs"}, text},
        {"no time", {}, {u"NaT", u"nat", u"\"NAT\""}, datetime},
    };
    for (const auto& [name, options, texts, expected] : cases) {
        for (const std::u16string_view text : texts) {
            EXPECT_EQ(class_of(text, options), expected) << name << ": " << test::shown(text);
        }
    }
}

TEST(TypeAnalyzer, ResetsWhitespaceButNotWhetherItTrims) {
    TypeAnalyzer<false> trimming({});
    trimming.reset_whitespace(u"_");
    EXPECT_EQ(trimming.classify(textio::Field(u"_12_")), number);
    EXPECT_EQ(trimming.classify(textio::Field(u" 12 ")), text);
    TypeAnalyzer<false> not_trimming(Options{.whitespace = u""});
    not_trimming.reset_whitespace(u"_");
    EXPECT_EQ(not_trimming.classify(textio::Field(u"_12_")), text);
}

} // namespace
} // namespace zentor::io::text::typedetection
