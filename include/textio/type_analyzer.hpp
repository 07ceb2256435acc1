/// \file
/// What kind of value the text of one field holds.
#pragma once

#include "textio/export.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Operations that prepare a field's text before it is judged. Each narrows the view of the field,
/// or changes a private copy of its text; the sample text itself is never touched.
namespace textio::operations {

/// Cuts the units of `whitespace` off both ends.
struct TEXTIO_EXPORT trim_whitespace {
    std::u16string whitespace; ///< the units to cut off; may be empty
    /// Narrows the view. A text that consists of such units alone becomes empty.
    void process(MutableField& field) const;
};

/// Takes the quotes off a text that begins with one, and undoes doubled quotes inside. What follows
/// the closing quote stays; a quote that is never closed is dropped at the front alone.
struct TEXTIO_EXPORT unquote {
    char16_t quote = u'"'; ///< the quote character
    /// Narrows the view, or changes a copy where a quote goes out of the middle of the text.
    void process(MutableField& field) const;
};

/// Empties a text that equals one of `texts` exactly.
struct TEXTIO_EXPORT treat_as_missing {
    std::vector<std::u16string> texts; ///< whole texts, compared unit by unit
    /// Narrows the view to nothing, or leaves it as it is.
    void process(MutableField& field) const;
};

/// Puts `replacement` in the place of every unit that is one of `replaced`.
struct TEXTIO_EXPORT replace_characters {
    std::u16string replaced;  ///< the units to replace
    char16_t replacement = 0; ///< what comes in their place
    /// Copies the text only if there is something to replace.
    void process(MutableField& field) const;
};

/// Takes every unit that is one of `removed` out of the text.
struct TEXTIO_EXPORT remove_characters {
    std::u16string removed; ///< the units to take out
    /// Narrows the view, or changes a copy where something goes out of the middle of the text.
    void process(MutableField& field) const;
};

/// Narrows a text to the first part of it that reads as a number, real or complex. A text without
/// one, or one that begins with a spelled `NaN` or `Inf`, stays as it is.
struct TEXTIO_EXPORT trim_non_numeric {
    /// Narrows the view.
    void process(MutableField& field) const;
};

} // namespace textio::operations

namespace zentor::io::text::typeconversion {

/// Numbers to the base 16.
struct HexNumberSystem {
    static constexpr std::u16string_view Prefix = u"0X"; ///< in front of the digits, in any case
};

/// Numbers to the base 2.
struct BinaryNumberSystem {
    static constexpr std::u16string_view Prefix = u"0B"; ///< in front of the digits, in any case
};

} // namespace zentor::io::text::typeconversion

namespace zentor::io::text::typedetection {

/// The kind of value that a field's text stands for. The values 0, 4 and 6 do not occur.
enum class FieldClass : std::uint8_t {
    number = 1,          ///< real or complex number, `NaN`, infinity
    text = 2,            ///< anything else
    datetime = 3,        ///< a date with a time of day, or `NaT`
    unknown = 5,         ///< no value: empty, or one of the texts that count as missing
    date = 7,            ///< a date without a time of day
    duration = 8,        ///< `hh:mm:ss` or `dd:hh:mm:ss`
    hex_number = 9,      ///< `0x` and hexadecimal digits
    binary_number = 10,  ///< `0b` and binary digits
    short_duration = 11, ///< two numbers with a colon between them
    delimiter_like = 12  ///< a lone comma, vertical bar or semicolon
};

/// Recognises `0x` or `0X` followed by hexadecimal digits only; the prefix alone is enough.
struct TEXTIO_EXPORT HexadecimalScanner {
    /// Whether the whole of `text` is such a number.
    [[nodiscard]] bool matches(const textio::Field& text) const noexcept;
};

/// Recognises `0b` or `0B` followed by binary digits only; the prefix alone is enough.
struct TEXTIO_EXPORT BinaryScanner {
    /// Whether the whole of `text` is such a number.
    [[nodiscard]] bool matches(const textio::Field& text) const noexcept;
};

/// Gives the text of a field its class. `TypeAnalyzer<false>` is the one form that exists.
template <bool>
class TypeAnalyzer;

/// Classifies fields under one set of options. Copies what it needs of the options; `classify`
/// changes nothing, and several threads may call it on one analyzer at once.
template <>
class TEXTIO_EXPORT TypeAnalyzer<false> {
public:
    /// An analyzer for texts with these marks and blanks; `options` need not outlive it.
    explicit TypeAnalyzer(const TypeAnalyzerOptions& options);

    /// The class of `field`'s text, which is not changed. Accepts any text. Uses heap memory only
    /// for a text of 32 units or more in whose middle something must be changed, and throws
    /// nothing but `std::bad_alloc` for that; an exception from `is_datetime` counts as a no.
    [[nodiscard]] FieldClass classify(const textio::Field& field) const;

    /// Whether a trimmed text is `NaT`, in any case.
    [[nodiscard]] bool is_NaT(const textio::Field& text) const;

    /// Whether a trimmed text is `NaN`, in any case, with or without a sign.
    [[nodiscard]] bool is_NaN(const textio::Field& text) const;

    /// Whether a trimmed text is `inf`, in any case, with or without a sign.
    [[nodiscard]] bool is_Inf(const textio::Field& text) const;

    /// Replaces the units trimmed from both ends. Whether anything is trimmed at all stays as the
    /// options said: an analyzer made without whitespace never trims.
    void reset_whitespace(const std::u16string& whitespace);

private:
    TEXTIO_NO_EXPORT void prepare(textio::MutableField& field) const;
    [[nodiscard]] TEXTIO_NO_EXPORT bool is_missing(std::u16string_view text) const;
    [[nodiscard]] TEXTIO_NO_EXPORT std::optional<FieldClass>
    class_with_digits(const textio::Field& text) const;
    [[nodiscard]] TEXTIO_NO_EXPORT FieldClass class_of_words(const textio::Field& text) const;
    TEXTIO_NO_EXPORT void swap_decimal(textio::MutableField& field) const;

    TEXTIO_NO_EXPORT static const HexadecimalScanner hexadecimal_scanner_;
    TEXTIO_NO_EXPORT static const BinaryScanner binary_scanner_;

    textio::operations::trim_whitespace whitespace_trimmer_;
    textio::operations::unquote unquoter_;
    textio::operations::treat_as_missing missing_filter_; ///< its texts are sorted
    textio::operations::replace_characters decimal_to_dot_;
    textio::operations::replace_characters dot_to_invalid_;
    textio::operations::remove_characters thousands_remover_;
    textio::operations::trim_non_numeric non_numeric_trimmer_;
    bool do_trim_non_numeric_;
    bool do_trim_whitespace_;
    bool do_treat_as_missing_;
    bool do_swap_decimal_;
    bool do_remove_thousands_;
    std::u16string datetime_context_;
    std::u16string number_exponents_;
};

} // namespace zentor::io::text::typedetection
