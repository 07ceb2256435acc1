#pragma once

#include "textio/type_analyzer.hpp"

#include <optional>
#include <string>

namespace zentor::io::text::typedetection {

/// `duration` for three or four runs of digits with colons between them, `short_duration` for two;
/// a sign in front and a fraction behind "." at the end are allowed. Values have no upper limit.
std::optional<FieldClass> duration_class(const textio::Field& text);

/// `datetime` or `date` if `is_datetime` accepts `text`, or accepts one part of it while the other,
/// set off by blanks, is a time of day. Whatever `is_datetime` throws counts as a no.
std::optional<FieldClass> datetime_class(const textio::Field& text, const std::u16string& context);

} // namespace zentor::io::text::typedetection
