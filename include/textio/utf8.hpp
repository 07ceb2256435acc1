/// \file
/// From UTF-8, which most hosts have, to the library's text.
///
/// Any bytes give a text. A sequence that is not well-formed becomes U+FFFD: one for each longest
/// start of a well-formed sequence, and one for each byte that starts none, which is how most
/// programs replace. A byte order mark at the very start is dropped; anywhere else it is text.
#pragma once

#include "textio/export.hpp"
#include "textio/platform/text_stream.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace textio::utf8 {

/// A place between two sequences of a text, in both its forms.
struct Place {
    std::size_t units = 0; ///< code units of the text before it
    std::size_t bytes = 0; ///< bytes before it, a byte order mark included
};

/// A text and what was found on the way to it.
struct Decoded {
    std::u16string text;      ///< all of it
    std::size_t replaced = 0; ///< the U+FFFD in the text that stand for malformed bytes
    bool had_mark = false;    ///< a byte order mark was dropped
};

/// The text of `bytes`. Throws `std::bad_alloc` and nothing else.
[[nodiscard]] TEXTIO_EXPORT Decoded decode(std::string_view bytes);

/// The offset of the byte at which the sequence begins that gave the code unit at `position`; of
/// both units of a pair, that of the pair. The number of bytes where the text has no such unit.
///
/// `bytes` may leave out those before `start`, which is then a place of the same text, such as
/// `Source::place_before` gives. `position` counts from the start of the whole text all the same,
/// and is not before `start`; so does the offset.
[[nodiscard]] TEXTIO_EXPORT std::size_t byte_offset(std::string_view bytes, std::size_t position,
                                                    Place start = {}) noexcept;

/// Where the bytes of a stream come from. A host derives from it.
class TEXTIO_EXPORT ByteSource {
public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    /// Puts the next bytes to `begin`, as many as it likes up to `end`, and gives their number. 0
    /// means that there are no more. May throw, and may then be asked again.
    virtual std::size_t read(char* begin, char* end) = 0;

    virtual ~ByteSource();
};

/// The text of UTF-8 that arrives piece by piece, for a `TextStream`. It needs the same memory for
/// any length. What its byte source throws passes through, and nothing is
/// lost unless memory runs out as well.
class TEXTIO_EXPORT Source : public zentor::io::text::stream::TextSource {
public:
    /// `bytes` must outlive the source. Throws `std::bad_alloc`.
    explicit Source(ByteSource& bytes);
    ~Source() override;

    std::size_t read(char16_t* begin, char16_t* end) override;

    /// How many U+FFFD have been delivered so far in the place of malformed bytes.
    [[nodiscard]] std::size_t replaced() const noexcept { return replaced_; }

    /// Whether a byte order mark was dropped. False until something has been read.
    [[nodiscard]] bool had_mark() const noexcept { return had_mark_; }

    /// The last place that was noted at or before `position`, a place in the text delivered.
    /// Whoever has the bytes from there on has the offset from `byte_offset`. Some hundreds of
    /// places are kept, spread evenly over what has been read.
    [[nodiscard]] Place place_before(std::size_t position) const noexcept;

private:
    TEXTIO_NO_EXPORT char16_t* decode_on(char16_t* at, char16_t* end);
    TEXTIO_NO_EXPORT char16_t* split_pair(char16_t* at);
    TEXTIO_NO_EXPORT void refill();
    TEXTIO_NO_EXPORT void drop_mark();
    TEXTIO_NO_EXPORT void note_place();

    ByteSource& source_;
    std::unique_ptr<char[]> buffer_;
    const char* begin_; ///< the first byte in the buffer that was not decoded
    const char* end_;   ///< one past the last
    std::size_t replaced_ = 0;
    Place place_;               ///< at `begin_`
    std::vector<Place> places_; ///< noted, ascending
    std::size_t places_apart_;  ///< bytes between them, at least
    std::u16string held_;       ///< decoded, but not delivered yet
    bool had_mark_ = false;
    bool has_started_ = false;
    bool has_ended_ = false; ///< the byte source has no more
};

} // namespace textio::utf8
