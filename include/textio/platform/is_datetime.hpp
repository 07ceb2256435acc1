/// \file
/// The test whether a text is a date. A host with a date facility of its own can build the library
/// without the bundled one and link its own function of this name.
#pragma once

#include "textio/export.hpp"
#include "textio/field.hpp"

#include <string>

namespace zentor::io::text::typeconversion {

/// Whether the whole of `text` is a date, or a date with a time of day. `context` is
/// `TypeAnalyzerOptions::datetime_context` as the host set it. The function changes neither; it may
/// throw anything, which counts as a no, and may be called on several threads at once.
///
/// The bundled one ignores `context`. It takes ISO 8601 dates and date-times, day, month and year
/// in the usual orders with `/`, `-` or `.`, English month and weekday names, 12-hour and 24-hour
/// times with fractions, offsets and zone names, and the stamps of common logs and mails.
TEXTIO_EXPORT bool is_datetime(const textio::Field& text, const std::u16string& context);

} // namespace zentor::io::text::typeconversion
