#include "textio/type_analyzer.hpp"

#include "ascii.hpp"
#include "typedetection/date_and_duration.hpp"
#include "typedetection/number_scanner.hpp"

#include <algorithm>
#include <functional>
#include <string_view>

namespace zentor::io::text::typedetection {

namespace {

namespace ascii = textio::ascii;

constexpr char16_t decimal_point = u'.';
constexpr char16_t no_unit_of_a_number = 0xFFFF;

std::u16string_view without_sign(std::u16string_view text) {
    return text.substr(ascii::skip_sign(text, 0));
}

bool has_digit(std::u16string_view text) {
    return std::any_of(text.begin(), text.end(), ascii::is_digit);
}

bool is_lone_delimiter(std::u16string_view text) {
    constexpr std::u16string_view delimiters = u",|;";
    return text.size() == 1 && delimiters.find(text.front()) != std::u16string_view::npos;
}

} // namespace

const HexadecimalScanner TypeAnalyzer<false>::hexadecimal_scanner_{};
const BinaryScanner TypeAnalyzer<false>::binary_scanner_{};

TypeAnalyzer<false>::TypeAnalyzer(const TypeAnalyzerOptions& options)
    : whitespace_trimmer_{options.whitespace}, unquoter_{},
      missing_filter_{options.treat_as_missing},
      decimal_to_dot_{std::u16string(1, options.decimal_separator), decimal_point},
      dot_to_invalid_{std::u16string(1, decimal_point), no_unit_of_a_number},
      thousands_remover_{std::u16string(1, options.thousands_separator)},
      do_trim_non_numeric_(options.trim_non_numeric),
      do_trim_whitespace_(!options.whitespace.empty()),
      do_treat_as_missing_(!options.treat_as_missing.empty()),
      do_swap_decimal_(options.decimal_separator != decimal_point),
      do_remove_thousands_(options.thousands_separator != 0),
      datetime_context_(options.datetime_context), number_exponents_(options.exponent_characters) {
    std::sort(missing_filter_.texts.begin(), missing_filter_.texts.end());
}

FieldClass TypeAnalyzer<false>::classify(const textio::Field& field) const {
    textio::MutableField text(field);
    prepare(text);
    if (text.size == 0) {
        return FieldClass::unknown;
    }
    if (has_digit(text.view())) {
        if (const auto found = class_with_digits(text)) {
            return *found;
        }
    }
    return class_of_words(text);
}

void TypeAnalyzer<false>::prepare(textio::MutableField& field) const {
    if (do_trim_whitespace_) {
        whitespace_trimmer_.process(field);
    }
    const std::size_t trimmed_size = field.size;
    unquoter_.process(field);
    const bool lost_quotes = field.size != trimmed_size;
    if (do_trim_whitespace_ && lost_quotes) {
        whitespace_trimmer_.process(field);
    }
    if (do_treat_as_missing_ && is_missing(field.view())) {
        field.size = 0;
    }
}

/// What the filter finds. Its texts are searched, not compared one by one, since there can be many.
bool TypeAnalyzer<false>::is_missing(std::u16string_view text) const {
    const auto& texts = missing_filter_.texts;
    return std::binary_search(texts.begin(), texts.end(), text, std::less<>());
}

std::optional<FieldClass> TypeAnalyzer<false>::class_with_digits(const textio::Field& text) const {
    textio::MutableField numeric(text);
    if (do_remove_thousands_) {
        thousands_remover_.process(numeric);
    }
    swap_decimal(numeric);
    if (is_number(numeric.view(), number_exponents_)) {
        return FieldClass::number;
    }
    if (hexadecimal_scanner_.matches(text)) {
        return FieldClass::hex_number;
    }
    if (binary_scanner_.matches(text)) {
        return FieldClass::binary_number;
    }

    textio::MutableField time(text);
    swap_decimal(time);
    if (const auto found = duration_class(time)) {
        return found;
    }
    if (const auto found = datetime_class(text, datetime_context_)) {
        return found;
    }

    if (do_trim_non_numeric_) {
        non_numeric_trimmer_.process(numeric);
        if (is_number(numeric.view(), number_exponents_)) {
            return FieldClass::number;
        }
    }
    return std::nullopt;
}

FieldClass TypeAnalyzer<false>::class_of_words(const textio::Field& text) const {
    if (is_NaT(text)) {
        return FieldClass::datetime;
    }
    if (is_NaN(text) || is_Inf(text)) {
        return FieldClass::number;
    }
    return is_lone_delimiter(text.view()) ? FieldClass::delimiter_like : FieldClass::text;
}

void TypeAnalyzer<false>::swap_decimal(textio::MutableField& field) const {
    if (!do_swap_decimal_) {
        return;
    }
    dot_to_invalid_.process(field); // first, or the new points would go with the old ones
    decimal_to_dot_.process(field);
}

bool TypeAnalyzer<false>::is_NaT(const textio::Field& text) const {
    return ascii::equals_ignoring_case(text.view(), u"NaT");
}

bool TypeAnalyzer<false>::is_NaN(const textio::Field& text) const {
    return ascii::equals_ignoring_case(without_sign(text.view()), u"NaN");
}

bool TypeAnalyzer<false>::is_Inf(const textio::Field& text) const {
    return ascii::equals_ignoring_case(without_sign(text.view()), u"inf");
}

void TypeAnalyzer<false>::reset_whitespace(const std::u16string& whitespace) {
    whitespace_trimmer_.whitespace = whitespace;
}

} // namespace zentor::io::text::typedetection
