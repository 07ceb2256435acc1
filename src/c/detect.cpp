#include "c/bytes.hpp"
#include "c/hints.hpp"
#include "c/layout.hpp"
#include "c/rules.hpp"
#include "c/status.hpp"
#include "textio/advice.hpp"
#include "textio/utf8.hpp"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace textio::c {

namespace {

/// Of a longer text in UTF-8, only the beginning is looked at.
constexpr std::size_t most_bytes = 0x400000;

/// The bytes that are looked at: of too many, those up to the last end of a line.
std::string_view head_of(std::string_view bytes) {
    if (bytes.size() <= most_bytes) {
        return bytes;
    }
    const std::string_view head = bytes.substr(0, most_bytes);
    const std::size_t line_end = head.find_last_of("\r\n");
    return line_end == std::string_view::npos ? head : head.substr(0, line_end + 1);
}

/// As many bytes as are looked at, and one more, if there are so many.
std::string read_head(utf8::ByteSource& source) {
    constexpr std::size_t step = 0x10000;
    std::string head;
    for (std::size_t count = 1; count > 0 && head.size() <= most_bytes;) {
        const std::size_t before = head.size();
        head.resize(before + std::min(std::max(step, before), most_bytes + 1 - before));
        count = source.read(head.data() + before, head.data() + head.size());
        head.resize(before + count);
    }
    return head;
}

std::unique_ptr<textio_layout> layout_by_advice(const Field& text, const textio_hints& hints) {
    advice::Advice advice =
        advice::advise(text, hints.rows.value_or(usual_rows), settings_of(hints));
    auto layout = std::make_unique<textio_layout>();
    layout->confidence = advice.confidence;
    layout->is_table = advice.is_table;
    layout->data_rows = count_data_rows(advice.proposals.front(), text);
    for (advice::Proposal& proposal : advice.proposals) {
        layout->proposals.push_back(told(std::move(proposal)));
    }
    return layout;
}

std::unique_ptr<textio_layout> layout_by_rules(const Field& text, const textio_hints& hints) {
    auto layout = std::make_unique<textio_layout>();
    advice::Proposal proposal = ask_rules(text, hints);
    layout->is_table = proposal.columns.size() > 1;
    layout->data_rows = proposal.columns.front().values + proposal.columns.front().missing;
    layout->proposals.push_back(told(std::move(proposal)));
    return layout;
}

/// Two proposals can share a sample, which views the text.
void drop_samples(textio_layout& layout) {
    for (ToldProposal& proposal : layout.proposals) {
        proposal.reading.strategy->field_array(std::make_unique<FieldArray>());
    }
}

void detect(const Field& text, const textio_hints* hints, textio_layout** layout) {
    const textio_hints nothing;
    const textio_hints& known = hints == nullptr ? nothing : *hints;
    check(known);
    auto found = known.method == Method::rules ? layout_by_rules(text, known)
                                               : layout_by_advice(text, known);
    drop_samples(*found);
    found->json = json_of(*found);
    *layout = found.release();
}

void detect_utf8(std::string_view bytes, const textio_hints* hints, textio_layout** layout) {
    const utf8::Decoded decoded = utf8::decode(head_of(bytes));
    detect(Field(decoded.text), hints, layout);
}

void require_room(textio_layout** layout) {
    require(layout != nullptr, "there is no place for the layout");
    *layout = nullptr;
}

} // namespace

} // namespace textio::c

using textio::c::guarded;
using textio::c::require;

textio_status textio_detect_utf16(const textio_unit* text, size_t units, const textio_hints* hints,
                                  textio_layout** layout) {
    return guarded([&] {
        textio::c::require_room(layout);
        require(text != nullptr || units == 0, "there is no text");
        textio::c::detect(textio::Field(text, units), hints, layout);
    });
}

textio_status textio_detect_utf8(const char* bytes, size_t size, const textio_hints* hints,
                                 textio_layout** layout) {
    return guarded([&] {
        textio::c::require_room(layout);
        require(bytes != nullptr || size == 0, "there are no bytes");
        textio::c::detect_utf8({bytes, size}, hints, layout);
    });
}

textio_status textio_detect_source(textio_read read, void* context, const textio_hints* hints,
                                   textio_layout** layout) {
    return guarded([&] {
        textio::c::require_room(layout);
        require(read != nullptr, "there is no callback");
        textio::c::CallbackBytes bytes(read, context);
        textio::c::detect_utf8(textio::c::read_head(bytes), hints, layout);
    });
}
