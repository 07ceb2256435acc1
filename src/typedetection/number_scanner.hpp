#pragma once

#include <cstddef>
#include <string_view>

/// Recognising numbers by their form. Nothing is converted, and "." is the only decimal point.
namespace zentor::io::text::typedetection {

/// The position after the real number that starts at `start`, or `start` if there is none. A number
/// is an optional sign with digits and at most one point among or beside them, then an exponent if
/// one of `exponent_characters` and a digit follow; or an optional sign with `NaN` or `Inf`.
std::size_t scan_real(std::u16string_view text, std::size_t start,
                      std::u16string_view exponent_characters);

/// Like `scan_real`, but an imaginary part, or the imaginary unit alone, counts as well.
std::size_t scan_number(std::u16string_view text, std::size_t start,
                        std::u16string_view exponent_characters);

/// Whether the whole of `text` is a real or complex number. Empty text is.
bool is_number(std::u16string_view text, std::u16string_view exponent_characters);

/// Whether `text` begins with `NaN` or `Inf` in any case, with or without a sign in front.
bool starts_with_spelled_number(std::u16string_view text);

} // namespace zentor::io::text::typedetection
