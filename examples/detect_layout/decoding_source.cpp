#include "decoding_source.hpp"

#include "converter.hpp"
#include "unicode.hpp"
#include "user_error.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace detect_layout {

DecodingSource::DecodingSource(ByteSource& bytes, std::string head,
                               const std::string& character_set, std::size_t piece_bytes)
    : bytes_(bytes), piece_(std::move(head)), piece_bytes_(piece_bytes),
      converter_(open_converter(character_set, undecodable_)) {
    if (converter_.isNull() != 0) {
        throw UserError(fmt::format("cannot decode the character set '{}'", character_set));
    }
}

std::size_t DecodingSource::read(char16_t* begin, char16_t* end) {
    char16_t* filled = decode(begin, end);
    if (at_start_ && filled != begin) {
        at_start_ = false;
        if (*begin == byte_order_mark) {
            filled = decode(std::copy(begin + 1, filled, begin), end);
        }
    }
    return static_cast<std::size_t>(filled - begin);
}

/// Gives the end of what it filled: `end`, unless the text has ended.
char16_t* DecodingSource::decode(char16_t* begin, char16_t* end) {
    while (begin != end && !text_ended_) {
        if (decoded_bytes_ == piece_.size() && !bytes_ended_) {
            take_next_piece();
        }
        const char* next_byte = piece_.data() + decoded_bytes_;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_toUnicode(converter_.getAlias(), &begin, end, &next_byte,
                       piece_.data() + piece_.size(), nullptr, bytes_ended_ ? 1 : 0, &status);
        decoded_bytes_ = static_cast<std::size_t>(next_byte - piece_.data());
        // The converter can hold units back for which there was no room.
        text_ended_ = bytes_ended_ && status != U_BUFFER_OVERFLOW_ERROR;
    }
    return begin;
}

void DecodingSource::take_next_piece() {
    piece_.resize(piece_bytes_);
    piece_.resize(bytes_.read(piece_.data(), piece_.size()));
    decoded_bytes_ = 0;
    bytes_ended_ = piece_.size() < piece_bytes_;
}

} // namespace detect_layout
