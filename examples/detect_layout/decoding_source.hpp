#pragma once

#include "bytes.hpp"
#include "counting_source.hpp"

#include <unicode/localpointer.h>
#include <unicode/ucnv.h>

#include <cstddef>
#include <string>

namespace detect_layout {

/// Decodes bytes to UTF-16, piece by piece, as far as somebody reads. A byte order mark at the
/// start is left out. Each byte sequence that means nothing in the character set becomes one U+FFFD
/// and is counted.
class DecodingSource : public CountingSource {
public:
    /// Decodes `head`, the bytes already taken from `bytes`, and then what `bytes` still has, of
    /// which it takes `piece_bytes` at a time. `bytes` must outlive the source.
    DecodingSource(ByteSource& bytes, std::string head, const std::string& character_set,
                   std::size_t piece_bytes = 65536);

    /// Throws `UserError` if the bytes cannot be read.
    std::size_t read(char16_t* begin, char16_t* end) override;

    [[nodiscard]] std::size_t undecodable() const noexcept override { return undecodable_; }

private:
    char16_t* decode(char16_t* begin, char16_t* end);
    void take_next_piece();

    ByteSource& bytes_;
    std::string piece_;
    std::size_t decoded_bytes_ = 0; ///< of `piece_`
    std::size_t piece_bytes_;
    std::size_t undecodable_ = 0;
    bool at_start_ = true;
    bool bytes_ended_ = false;
    bool text_ended_ = false;
    icu::LocalUConverterPointer converter_;
};

} // namespace detect_layout
