#include "text_input.hpp"

#include "decoding_source.hpp"
#include "textio/fixed_stream.hpp"
#include "utf8_source.hpp"

#include <utility>

namespace detect_layout {

namespace {

/// How far into a text its character set is looked for.
constexpr std::size_t head_bytes = 1'048'576;

std::string read_head(ByteSource& bytes) {
    std::string head(head_bytes, '\0');
    head.resize(bytes.read(head.data(), head.size()));
    return head;
}

std::unique_ptr<CountingSource> decoded(ByteSource& bytes, std::string head,
                                        const std::string& character_set) {
    if (character_set == "UTF-8") {
        return std::make_unique<Utf8Source>(bytes, std::move(head));
    }
    return std::make_unique<DecodingSource>(bytes, std::move(head), character_set);
}

} // namespace

TextInput::TextInput(std::unique_ptr<ByteSource> bytes, const std::string& encoding,
                     const std::vector<std::u16string>& line_endings)
    : bytes_(std::move(bytes)) {
    std::string head = read_head(*bytes_);
    character_set_ = encoding.empty() ? detect_character_set(head, head.size() < head_bytes)
                                      : CharacterSet{encoding, {}};
    source_ = decoded(*bytes_, std::move(head), character_set_.name);
    stream_ = std::make_unique<zentor::io::text::stream::TextStream>(*source_);
    text_ = textio::get_fixed_stream(*stream_, line_endings);
}

bool TextInput::is_cut() const noexcept {
    return stream_->data_end - stream_->position > static_cast<std::ptrdiff_t>(text_.size);
}

} // namespace detect_layout
