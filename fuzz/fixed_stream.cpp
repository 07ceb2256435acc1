// Views of streams whose sources deliver in odd pieces, lie about it, and throw.
#include "textio/fixed_stream.hpp"
#include "input.hpp"

#include <cstring>
#include <optional>

namespace {

using fuzz::require;
using textio::Field;
using zentor::io::text::stream::TextSource;
using zentor::io::text::stream::TextStream;

constexpr std::size_t view_limit = 0x400000;

struct SourceFailure {};

/// Delivers a text, repeated up to a length, and keeps what it delivered.
class OddSource : public TextSource {
public:
    OddSource(const Field& text, std::size_t length, std::size_t failing_read, bool boasts,
              std::size_t short_read)
        : text_(text), length_(text.size == 0 ? 0 : length), failing_read_(failing_read),
          boasts_(boasts), short_read_(short_read) {}

    std::size_t read(char16_t* begin, char16_t* end) override {
        const std::size_t number = reads_++;
        if (number == failing_read_) {
            std::fill(begin, begin + (end - begin) / 2, u'!');
            throw SourceFailure();
        }
        const auto room = static_cast<std::size_t>(end - begin);
        std::size_t count = std::min(room, length_ - delivered.size());
        if (number == short_read_) {
            count /= 2;
            length_ = delivered.size() + count;
        }
        for (std::size_t filled = 0; filled < count;) {
            const std::size_t at = (delivered.size() + filled) % text_.size;
            const std::size_t piece = std::min(count - filled, text_.size - at);
            std::copy_n(text_.data + at, piece, begin + filled);
            filled += piece;
        }
        delivered.append(begin, count);
        // One that claims more than there was room for is taken to have filled the room.
        return boasts_ && count == room ? room + 5 : count;
    }

    std::u16string delivered;

private:
    Field text_;
    std::size_t length_;
    std::size_t reads_ = 0;
    std::size_t failing_read_;
    bool boasts_;
    std::size_t short_read_;
};

/// Compares memory: unit by unit, millions of units take seconds under the sanitizers.
bool holds(const TextStream& stream, const std::u16string& text) {
    const auto held = static_cast<std::size_t>(stream.data_end - stream.buffer_begin);
    return held == text.size() && (held == 0 || std::memcmp(stream.buffer_begin, text.data(),
                                                            held * sizeof(char16_t)) == 0);
}

/// The view, after one more try if the source failed.
Field view_of(const TextStream& stream, const OddSource& source,
              const std::vector<std::u16string>& line_endings) {
    const std::ptrdiff_t position = stream.position - stream.buffer_begin;
    std::optional<Field> view;
    try {
        view = textio::get_fixed_stream(stream, line_endings);
    } catch (const SourceFailure&) {
        require(stream.position - stream.buffer_begin == position, "the position stays");
        require(holds(stream, source.delivered), "a failed read leaves the text as it was");
        view = textio::get_fixed_stream(stream, line_endings);
    }
    require(stream.position - stream.buffer_begin == position, "the position stays");
    require(holds(stream, source.delivered), "the buffer holds what was delivered");
    require(view->data == stream.position, "the view starts at the position");
    return *view;
}

bool ends_in(const Field& view, const std::vector<std::u16string>& line_endings,
             std::u16string_view ahead) {
    return std::ranges::any_of(line_endings, [&](const std::u16string& ending) {
        return !ending.empty() && ahead.substr(view.size - 1).starts_with(ending);
    });
}

void check_view(const Field& view, std::u16string_view ahead,
                const std::vector<std::u16string>& line_endings) {
    require(view.size <= ahead.size() && view.size <= view_limit, "the view is not too long");
    if (ahead.find(textio::end_of_text) != std::u16string_view::npos) {
        return; // what stands for the end of a text may be taken for it
    }
    if (ahead.size() <= view_limit) {
        require(view.size == ahead.size(), "a short text is seen whole");
    } else {
        require(view.size == 0 || ends_in(view, line_endings, ahead.substr(0, view_limit)),
                "a long text is seen up to a line ending");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::size_t long_lengths[] = {0x20000 - 1,         0x20000,    0x20000 + 1,
                                                   view_limit - 1,      view_limit, view_limit + 1,
                                                   view_limit + 0x20000};
    fuzz::Input input(data, size);
    const fuzz::Text text = input.text();
    const auto line_endings = input.strings({u"\r\n", u"\n", u"\r"});
    // A long text takes a hundred times as long as a short one, so it is made rare.
    const bool is_long = input.byte() == 0xA5 && input.byte() == 0x5A;
    const std::size_t length =
        is_long ? input.choice(view_limit + 2, long_lengths) : text.field().size;
    const std::size_t failing_read = input.size(SIZE_MAX);
    const std::size_t short_read = input.size(SIZE_MAX);
    const bool boasts = input.flag(false);
    OddSource source(text.field(), length, failing_read, boasts, short_read);
    const TextStream stream(source);

    // The host reads on in the stream between the views.
    for (int rounds = is_long ? 1 : 3; rounds > 0; --rounds) {
        const Field view = view_of(stream, source, line_endings);
        const auto begin = static_cast<std::size_t>(stream.position - stream.buffer_begin);
        check_view(view, std::u16string_view(source.delivered).substr(begin), line_endings);
        stream.position += std::min(input.size(1), view.size);
    }
    return 0;
}
