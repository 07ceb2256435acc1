#include "utf8_source.hpp"

#include <utility>

namespace detect_layout {

Utf8Source::Bytes::Bytes(detect_layout::ByteSource& bytes, std::string head)
    : bytes_(bytes), head_(std::move(head)) {}

std::size_t Utf8Source::Bytes::read(char* begin, char* end) {
    const auto room = static_cast<std::size_t>(end - begin);
    if (taken_ == head_.size()) {
        return bytes_.read(begin, room);
    }
    const std::size_t count = head_.copy(begin, room, taken_);
    taken_ += count;
    if (taken_ == head_.size()) {
        head_ = {};
        taken_ = 0;
    }
    return count;
}

Utf8Source::Utf8Source(ByteSource& bytes, std::string head)
    : bytes_(bytes, std::move(head)), source_(bytes_) {}

} // namespace detect_layout
