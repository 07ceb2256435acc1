/// \file
/// Where UTF-8 comes from, in the library's terms.
#pragma once

#include "c/status.hpp"
#include "textio/c.h"
#include "textio/utf8.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace textio::c {

/// The bytes that a callback delivers. Throws `SourceFailure` if it cannot.
class CallbackBytes : public utf8::ByteSource {
public:
    CallbackBytes(textio_read callback, void* context) noexcept
        : callback_(callback), context_(context) {}

    std::size_t read(char* begin, char* end) override {
        const auto room = static_cast<std::size_t>(end - begin);
        const std::size_t count = callback_(context_, begin, room);
        if (count > room) {
            throw SourceFailure();
        }
        return count;
    }

private:
    textio_read callback_;
    void* context_;
};

/// Bytes in memory, which must outlive it.
class MemoryBytes : public utf8::ByteSource {
public:
    explicit MemoryBytes(std::string_view bytes) noexcept : rest_(bytes) {}

    std::size_t read(char* begin, char* end) override {
        const std::size_t count = std::min(rest_.size(), static_cast<std::size_t>(end - begin));
        std::copy_n(rest_.begin(), count, begin);
        rest_.remove_prefix(count);
        return count;
    }

private:
    std::string_view rest_;
};

} // namespace textio::c
