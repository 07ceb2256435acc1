// Reading on, at any size of the pieces, set against the sample of the whole text; and the text of
// any bytes, set against itself in pieces.
#include "textio/reading.hpp"
#include "parser/read_sample.hpp"
#include "samples.hpp"
#include "textio/utf8.hpp"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace textio;
using fuzz::require;
using zentor::io::text::stream::TextSource;
using zentor::io::text::stream::TextStream;

/// Delivers a text in memory, and fails once.
class Pieces : public TextSource {
public:
    struct Failure {};

    Pieces(const Field& text, std::size_t failing_read) : rest_(text), failing_(failing_read) {}

    std::size_t read(char16_t* begin, char16_t* end) override {
        if (reads_++ == failing_) {
            throw Failure();
        }
        const std::size_t count = std::min(rest_.size, static_cast<std::size_t>(end - begin));
        std::copy_n(rest_.data, count, begin);
        rest_.advance(count);
        return count;
    }

private:
    Field rest_;
    std::size_t failing_;
    std::size_t reads_ = 0;
};

std::shared_ptr<GenericStrategy> layout_of(fuzz::Input& input) {
    const std::uint8_t kind = input.byte() % 4;
    const parser::options options = input.reading_options();
    const auto types = input.type_options();
    switch (kind) {
    case 0:
        return std::make_shared<DelimitedStrategy>(options, types);
    case 1:
        return std::make_shared<SpaceAlignedStrategy>(options, types);
    case 2:
        return std::make_shared<FixedWidthStrategy>(options, types,
                                                    std::vector<std::size_t>(options.field_widths));
    default:
        return std::make_shared<LineReaderStrategy>(options, types);
    }
}

using Records = std::vector<std::vector<std::u16string>>;

std::vector<std::u16string> texts_of(std::span<const Field> fields) {
    std::vector<std::u16string> texts;
    for (const Field& field : fields) {
        texts.emplace_back(field.view());
    }
    return texts;
}

Records records_of(reading::Reader& reader) {
    Records records;
    std::u16string buffer;
    for (bool is_done = false; !is_done;) {
        try {
            while (reader.next()) {
                records.push_back(texts_of(reader.fields()));
                for (const Field& field : reader.fields()) {
                    require(reading::cell_value(field, reader.options(), buffer).size() <=
                                field.size,
                            "a value is not longer than its cell");
                }
            }
            is_done = true;
        } catch (const Pieces::Failure&) {
            is_done = false;
        }
    }
    return records;
}

Records sample_of(const std::shared_ptr<GenericStrategy>& layout, const Field& text) {
    output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = SIZE_MAX;
    parser::read_sample(builder, layout, false);
    const FieldArray& sample = *layout->field_array();
    const std::size_t header = layout->header_lines() == SIZE_MAX ? 0 : layout->header_lines();
    Records records;
    for (std::size_t line = header; line < sample.line_count(); ++line) {
        if (!sample.line(line).empty()) {
            records.push_back(texts_of(sample.line(line)));
        }
    }
    return records;
}

void check_utf8(const std::uint8_t* data, std::size_t size, std::size_t range) {
    class Bytes : public utf8::ByteSource {
    public:
        explicit Bytes(std::string_view bytes) : rest_(bytes) {}
        std::size_t read(char* begin, char* end) override {
            const std::size_t piece =
                rest_.empty() ? 1 : 1 + static_cast<unsigned char>(rest_[0]) % 9;
            const std::size_t count =
                std::min({piece, rest_.size(), static_cast<std::size_t>(end - begin)});
            std::copy_n(rest_.begin(), count, begin);
            rest_.remove_prefix(count);
            return count;
        }

    private:
        std::string_view rest_;
    };
    const std::string bytes(data, data + size);
    const utf8::Decoded decoded = utf8::decode(bytes);
    Bytes source_bytes(bytes);
    utf8::Source source(source_bytes);
    std::u16string text;
    std::u16string piece(range, u' ');
    for (std::size_t count = range; count == range;) {
        count = source.read(piece.data(), piece.data() + range);
        text.append(piece, 0, count);
    }
    require(text == decoded.text && source.replaced() == decoded.replaced &&
                source.had_mark() == decoded.had_mark,
            "pieces give the text of the whole");
    std::size_t last = 0;
    for (std::size_t position = 0; position <= text.size(); ++position) {
        const std::size_t offset = utf8::byte_offset(bytes, position);
        require(offset >= last && offset <= size, "offsets rise");
        require(position == text.size() || offset < size, "a unit has bytes");
        last = offset;
    }
    require(last == size, "the end of the text is that of the bytes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::size_t chunk = input.byte() + std::size_t{1};
    const std::size_t failing_read = input.size(SIZE_MAX);
    const auto layout = layout_of(input);
    const fuzz::Text text = input.text();
    const Records expected = sample_of(layout, text.field());

    reading::Reader whole(*layout, text.field());
    require(records_of(whole) == expected, "the text in memory gives the sample");
    Pieces source(text.field(), failing_read);
    TextStream stream(source);
    reading::Settings settings;
    settings.chunk_units = chunk;
    reading::Reader reader(*layout, stream, settings);
    require(records_of(reader) == expected, "pieces of the text give the sample");

    check_utf8(data, size, chunk);
    return 0;
}
