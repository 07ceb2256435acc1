/// \file
/// The handles of the C interface, freed by themselves.
#pragma once

#include "textio/c.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace test {

struct Free {
    void operator()(textio_hints* hints) const { textio_hints_free(hints); }
    void operator()(textio_layout* layout) const { textio_layout_free(layout); }
    void operator()(textio_reader* reader) const { textio_reader_free(reader); }
};

using Hints = std::unique_ptr<textio_hints, Free>;
using Layout = std::unique_ptr<textio_layout, Free>;
using Reader = std::unique_ptr<textio_reader, Free>;
using HintTexts = std::vector<std::pair<const char*, const char*>>;

/// Hints with these values; none if one is refused.
inline Hints hints_of(const HintTexts& texts) {
    Hints hints(textio_hints_new());
    for (const auto& [name, value] : texts) {
        if (textio_hints_set(hints.get(), name, value) != TEXTIO_OK) {
            return {};
        }
    }
    return hints;
}

/// The layout of a text in UTF-8; none if the call fails.
inline Layout layout_of(std::string_view text, const textio_hints* hints = nullptr) {
    textio_layout* layout = nullptr;
    textio_detect_utf8(text.data(), text.size(), hints, &layout);
    return Layout(layout);
}

/// A reader of a text in UTF-8, which must outlive it, under the best proposal.
inline Reader reader_of(const Layout& layout, std::string_view text) {
    textio_reader* reader = nullptr;
    textio_reader_utf8(layout.get(), 0, text.data(), text.size(), &reader);
    return Reader(reader);
}

/// The fields of a record, each in brackets.
inline std::string shown_record(textio_reader* reader) {
    std::string shown;
    for (size_t field = 0; field < textio_reader_fields(reader); ++field) {
        size_t length = 0;
        const char* const bytes = textio_reader_field_utf8(reader, field, &length);
        shown += bytes == nullptr ? "?" : "[" + std::string(bytes, length) + "]";
    }
    return shown;
}

/// All further records, with a `/` behind each.
inline std::string shown_records(textio_reader* reader) {
    std::string shown;
    for (int has_record = 0; textio_reader_next(reader, &has_record) == TEXTIO_OK && has_record == 1;) {
        shown += shown_record(reader) + "/";
    }
    return shown;
}

} // namespace test
