#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace detect_layout {

/// Bytes that are read once, from the first to the last.
class ByteSource {
public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    /// Puts the next `size` bytes at `begin`, fewer only if no more follow, and tells how many.
    /// Throws `UserError` if the bytes cannot be read.
    virtual std::size_t read(char* begin, std::size_t size) = 0;

    /// Whether the bytes read so far came out of gzip's compression.
    [[nodiscard]] virtual bool is_unpacked() const noexcept { return false; }

    /// How many bytes there are, before they are unpacked; 0 if nobody knows.
    [[nodiscard]] virtual std::size_t total() const noexcept { return 0; }

    /// How many of these have been read.
    [[nodiscard]] virtual std::size_t place() const noexcept { return 0; }
};

/// Opens the file at `path`, or standard input for `-`. What gzip compressed is unpacked as it is
/// read. Throws `UserError` if that cannot be done.
[[nodiscard]] std::unique_ptr<ByteSource> open_bytes(const std::string& path);

} // namespace detect_layout
