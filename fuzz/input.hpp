/// \file
/// Texts, options and numbers made from the bytes of a fuzzer.
///
/// The text stands first, one byte for each code unit. Behind it stand the bytes that options and
/// numbers are made from, and last their number. A byte of 0, or one that is missing, gives the
/// usual value: so a plain text and one zero byte is that text under default options.
#pragma once

#include "textio/field.hpp"
#include "textio/options.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace fuzz {

inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

/// A text in memory of exactly its size, so that a sanitizer sees any read past either end.
class Text {
public:
    explicit Text(std::span<const std::uint8_t> bytes)
        : units_(std::make_unique<char16_t[]>(bytes.size())), size_(bytes.size()) {
        std::ranges::transform(bytes, units_.get(), unit_of);
    }

    [[nodiscard]] textio::Field field() const { return {units_.get(), size_}; }

private:
    /// ASCII stands for itself, and the other bytes for units that are easily got wrong.
    static char16_t unit_of(std::uint8_t byte) {
        static constexpr char16_t others[] = {
            0xFFFF, 0xD800, 0xDC00, 0xFFFE, 0xFEFF, 0x0080, 0x00FF, 0x0100,
            0x0101, 0x00A0, 0x2028, 0x2C2C, 0x8001, 0x0A0A, 0x0E9C, 0xDFFF,
        };
        return byte < 0x80 ? byte : others[byte % std::size(others)];
    }

    std::unique_ptr<char16_t[]> units_;
    std::size_t size_;
};

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {
        if (!rest_.empty()) {
            const std::size_t wanted = rest_.back();
            rest_ = rest_.first(rest_.size() - 1);
            const std::size_t count = std::min(wanted, rest_.size());
            values_ = rest_.last(count);
            rest_ = rest_.first(rest_.size() - count);
        }
    }

    [[nodiscard]] Text text() const { return Text(rest_); }

    /// The bytes of the text as they are.
    [[nodiscard]] std::span<const std::uint8_t> text_bytes() const { return rest_; }

    std::uint8_t byte() {
        if (values_.empty()) {
            return 0;
        }
        const std::uint8_t value = values_.front();
        values_ = values_.subspan(1);
        return value;
    }

    bool flag(bool usual) { return (byte() % 2 != 0) != usual; }

    /// `usual`, or one of `others`.
    template <class Value, std::size_t count>
    Value choice(const Value& usual, const Value (&others)[count]) {
        const std::size_t index = byte() % (count + 1);
        return index == 0 ? usual : others[index - 1];
    }

    std::size_t size(std::size_t usual) {
        static constexpr std::size_t sizes[] = {
            0,
            1,
            2,
            3,
            4,
            7,
            63,
            64,
            65,
            100,
            1000,
            0x7FFFFFFF,
            0x80000000,
            0xFFFFFFFF,
            0x100000000,
            SIZE_MAX / 2,
            SIZE_MAX / 2 + 1,
            SIZE_MAX - 1,
            SIZE_MAX,
        };
        return choice(usual, sizes);
    }

    /// A value of a rule, or one that no rule has.
    std::uint8_t rule(std::uint8_t usual) {
        static constexpr std::uint8_t rules[] = {0, 1, 2, 3, 4, 5, 6, 255};
        return choice(usual, rules);
    }

    char16_t unit(char16_t usual) {
        static constexpr char16_t units[] = {
            u',', u';', u' ',  u'\t', u'"',   u'\'',  u'\n',  u'\r',
            u'.', u'1', u'\0', u'#',  0x00FF, 0x0101, 0xD800, 0xFFFF,
        };
        return choice(usual, units);
    }

    std::u16string string(const std::u16string& usual) {
        static const std::u16string strings[] = {
            u"",   u",",  u";",    u" ",      u"\t",       u"\n",   u"\r\n", u"\r",   u"::",
            u",,", u"\"", u"#",    u"/*",     u"*/",       u" \t",  u"a",    u"1",    u".,",
            u"NA", u"-",  u" \n,", u"\xFFFF", u"\xFFFF\n", u"\n,a", u"\xFF", u"\x101"};
        return choice(usual, strings);
    }

    std::vector<std::u16string> strings(const std::vector<std::u16string>& usual) {
        const std::uint8_t count = byte() % 8;
        if (count == 0) {
            return usual;
        }
        std::vector<std::u16string> chosen;
        for (std::uint8_t i = 1; i < count; ++i) {
            chosen.push_back(string(u","));
        }
        return chosen;
    }

    textio::parser::options reading_options() {
        textio::parser::options options;
        options.delimiters = strings({u","});
        options.comment_style = strings(options.comment_style);
        options.line_endings = strings(options.line_endings);
        options.whitespace = string(options.whitespace);
        options.excluded_delimiter = string(options.excluded_delimiter);
        options.quote = unit(options.quote);
        options.consecutive_delimiters_rule = rule(options.consecutive_delimiters_rule);
        options.empty_line_rule = rule(options.empty_line_rule);
        options.leading_delimiters_rule = rule(options.leading_delimiters_rule);
        options.trailing_delimiters_rule = rule(options.trailing_delimiters_rule);
        options.partial_field_rule = rule(options.partial_field_rule);
        options.layout_hint = rule(options.layout_hint);
        options.header_lines = size(options.header_lines);
        options.detect_header_lines = flag(options.detect_header_lines);
        options.skip_variable_count_rule = flag(options.skip_variable_count_rule);
        options.expected_variables = size(options.expected_variables);
        for (std::uint8_t count = byte() % 16; count > 0; --count) {
            options.field_widths.push_back(size(5));
        }
        return options;
    }

    zentor::io::text::typedetection::TypeAnalyzerOptions type_options() {
        zentor::io::text::typedetection::TypeAnalyzerOptions options;
        options.decimal_separator = unit(options.decimal_separator);
        options.thousands_separator = unit(options.thousands_separator);
        options.trim_non_numeric = flag(options.trim_non_numeric);
        options.exponent_characters = string(options.exponent_characters);
        options.whitespace = string(options.whitespace);
        options.treat_as_missing = strings(options.treat_as_missing);
        return options;
    }

private:
    std::span<const std::uint8_t> rest_;
    std::span<const std::uint8_t> values_;
};

} // namespace fuzz
