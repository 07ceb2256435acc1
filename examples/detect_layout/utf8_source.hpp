#pragma once

#include "bytes.hpp"
#include "counting_source.hpp"
#include "textio/utf8.hpp"

#include <string>

namespace detect_layout {

/// What `DecodingSource` does, for UTF-8 alone and several times as fast.
class Utf8Source : public CountingSource {
public:
    /// Decodes `head`, the bytes already taken from `bytes`, and then what `bytes` still has, which
    /// must outlive the source.
    Utf8Source(ByteSource& bytes, std::string head);

    /// Throws `UserError` if the bytes cannot be read.
    std::size_t read(char16_t* begin, char16_t* end) override { return source_.read(begin, end); }

    [[nodiscard]] std::size_t undecodable() const noexcept override { return source_.replaced(); }

private:
    class Bytes : public textio::utf8::ByteSource {
    public:
        Bytes(detect_layout::ByteSource& bytes, std::string head);
        std::size_t read(char* begin, char* end) override;

    private:
        detect_layout::ByteSource& bytes_;
        std::string head_;
        std::size_t taken_ = 0; ///< of the head
    };

    Bytes bytes_;
    textio::utf8::Source source_;
};

} // namespace detect_layout
