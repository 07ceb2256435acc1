#pragma once

#include "textio/platform/text_stream.hpp"

#include <cstddef>

namespace detect_layout {

/// A text that is decoded as it is read, and the count of what could not be.
class CountingSource : public zentor::io::text::stream::TextSource {
public:
    /// Byte sequences replaced by U+FFFD in what has been read so far.
    [[nodiscard]] virtual std::size_t undecodable() const noexcept = 0;
};

} // namespace detect_layout
