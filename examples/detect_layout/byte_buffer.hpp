#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace detect_layout {

/// Bytes that are written one behind the other, and where room is made once for many of them.
class ByteBuffer {
public:
    /// Where to write up to `count` bytes; `fill_to` tells how far that went. Throws
    /// `std::bad_alloc`.
    [[nodiscard]] char* room(std::size_t count) {
        if (capacity_ - size_ < count) {
            grow(count);
        }
        return bytes_.get() + size_;
    }

    void fill_to(const char* end) noexcept { size_ = static_cast<std::size_t>(end - bytes_.get()); }

    void append(std::string_view text) {
        std::copy(text.begin(), text.end(), room(text.size())); // empty ones may be null
        size_ += text.size();
    }

    void append(char byte) {
        *room(1) = byte;
        ++size_;
    }

    /// Replaces the last one, which there must be.
    void replace_last(char byte) noexcept { bytes_[size_ - 1] = byte; }

    void clear() noexcept { size_ = 0; }
    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    [[nodiscard]] std::string_view view() const noexcept { return {bytes_.get(), size_}; }

private:
    void grow(std::size_t count) {
        const std::size_t capacity = 2 * capacity_ + count;
        std::unique_ptr<char[]> bytes(new char[capacity]); // not filled with zeros
        if (size_ > 0) {
            std::memcpy(bytes.get(), bytes_.get(), size_);
        }
        bytes_ = std::move(bytes);
        capacity_ = capacity;
    }

    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace detect_layout
