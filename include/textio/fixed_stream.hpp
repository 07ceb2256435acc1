/// \file
/// From a stream that delivers its text piece by piece to one view of whole lines.
#pragma once

#include "textio/export.hpp"
#include "textio/field.hpp"
#include "textio/platform/text_stream.hpp"

#include <string>
#include <vector>

namespace textio {

/// A view of the text that lies ahead of the position of `stream`: all of it if that is at most
/// 4,194,304 code units, else as much of that as ends with a line ending. Of a longer text without
/// any of `line_endings` within the limit the view is empty.
///
/// The stream's position stays where it is, but its buffer may grow and move, so no other thread
/// may use the stream meanwhile. The view points into that buffer: it is good until the stream is
/// next read from or destroyed. What the source throws, and `std::bad_alloc`, passes through.
TEXTIO_EXPORT Field get_fixed_stream(const zentor::io::text::stream::TextStream& stream,
                                     const std::vector<std::u16string>& line_endings);

} // namespace textio
