// The C interface: any hints, any bytes, in any form and in pieces.
#include "c/handles.hpp"
#include "c/pieces.hpp"
#include "input.hpp"
#include "textio/utf8.hpp"

#include <cstring>
#include <string>
#include <string_view>

namespace {

using fuzz::require;
using test::Pieces;

/// A value for a hint. The first ones suit most.
std::string value_for(fuzz::Input& input) {
    static const std::string values[] = {"0",
                                         "rules",
                                         "3",
                                         "line",
                                         ",",
                                         ";",
                                         "/*",
                                         "*/",
                                         "'",
                                         ".",
                                         "5,2,9",
                                         "none",
                                         "NA",
                                         "advice",
                                         "fixed_width",
                                         "\xC3\xA4",
                                         "\xC3",
                                         "\xF0\x9F\x90\x9D",
                                         " _",
                                         "-1",
                                         "\n",
                                         "",
                                         "1,2,3,,",
                                         "delimited",
                                         "space_aligned",
                                         "#",
                                         "18446744073709551615",
                                         "4294967295",
                                         std::string("a\0b", 3),
                                         std::string(300, 'x')};
    return input.choice(std::string("2"), values);
}

/// Says and adds whatever the input gives. A hint that is refused is told of.
test::Hints any_hints(fuzz::Input& input) {
    test::Hints hints(textio_hints_new());
    for (std::uint8_t count = input.byte() % 8; count > 0; --count) {
        const std::uint8_t number = input.byte();
        const char* const known = number == 0 ? nullptr : textio_hint_name((number - 1U) % 14);
        const char* const name = known == nullptr ? "no_such_hint" : known;
        const std::string value = value_for(input);
        const textio_status status =
            number < 128 ? textio_hints_set_sized(hints.get(), name, value.data(), value.size())
                         : textio_hints_add(hints.get(), name, value.c_str());
        require(status == TEXTIO_OK || status == TEXTIO_BAD_VALUE || status == TEXTIO_UNKNOWN_NAME,
                "a hint is taken or refused");
        require(status == TEXTIO_OK || *textio_last_error() != '\0', "what is wrong is told");
    }
    return hints;
}

void check_text(const char* text, size_t length) {
    require(text != nullptr && text[length] == '\0', "a text ends with a 0");
    require(textio::utf8::decode({text, length}).replaced == 0, "what comes out is UTF-8");
}

void check_if_any(const char* text, size_t length) {
    if (text == nullptr) {
        require(length == 0, "no text has no length");
    } else {
        check_text(text, length);
    }
}

void check_proposal(const textio_layout* layout, size_t proposal) {
    require(textio::utf8::decode(textio_layout_kind(layout, proposal)).text.size() >= 4,
            "a layout has a kind");
    check_text(textio_layout_why(layout, proposal),
               std::strlen(textio_layout_why(layout, proposal)));
    for (const auto text :
         {textio_layout_delimiter, textio_layout_quote, textio_layout_comment,
          textio_layout_comment_end, textio_layout_decimal, textio_layout_thousands}) {
        size_t length = 1;
        const char* const bytes = text(layout, proposal, &length);
        check_if_any(bytes, length);
    }
    const size_t columns = textio_layout_columns(layout, proposal);
    require(columns > 0, "there is a column");
    for (size_t column = 0; column <= columns; ++column) {
        size_t length = 1;
        const char* const name = textio_layout_column_name(layout, proposal, column, &length);
        check_if_any(name, length);
        require((name != nullptr) == (column < columns),
                "every column has a name, if an empty one");
        require(textio_layout_column_values(layout, proposal, column) +
                        textio_layout_column_missing(layout, proposal, column) ==
                    (column < columns ? textio_layout_column_values(layout, proposal, 0) +
                                            textio_layout_column_missing(layout, proposal, 0)
                                      : 0),
                "columns have the same rows");
    }
    require(textio_layout_score(layout, proposal) <= 1, "a score is at most 1");
}

/// All records, in order, whatever fails on the way.
std::string records_of(textio_reader* reader) {
    std::string records;
    int has_record = 1;
    while (has_record == 1) {
        const textio_status status = textio_reader_next(reader, &has_record);
        require(status == TEXTIO_OK || status == TEXTIO_SOURCE_FAILED,
                "reading fails with its source");
        if (status == TEXTIO_SOURCE_FAILED) {
            has_record = 1;
            continue;
        }
        for (size_t field = 0; field < textio_reader_fields(reader); ++field) {
            size_t length = 0;
            size_t units = 0;
            const char* const bytes = textio_reader_field_utf8(reader, field, &length);
            check_text(bytes, length);
            require(textio_reader_field_utf16(reader, field, &units) != nullptr && units <= length,
                    "a value has no more units than bytes");
            records.append(bytes, length) += '\x1F';
        }
        records += has_record == 1 ? std::to_string(textio_reader_line(reader)) + '\x1E' : "";
    }
    require(std::strcmp(textio_reader_end(reader), "not_yet") != 0, "reading has ended");
    return records;
}

void check_reading(const textio_layout* layout, std::string_view bytes, const std::u16string& text,
                   Pieces pieces) {
    const size_t proposal = pieces.piece % textio_layout_proposals(layout);
    textio_reader* reader = nullptr;
    require(textio_reader_utf8(layout, proposal, bytes.data(), bytes.size(), &reader) == TEXTIO_OK,
            "bytes can be read");
    const std::string records = records_of(test::Reader(reader).get());
    require(textio_reader_source(layout, proposal, Pieces::read, &pieces, &reader) == TEXTIO_OK,
            "a source can be read");
    require(records_of(test::Reader(reader).get()) == records, "pieces have the same records");
    require(textio_reader_utf16(layout, proposal, text.data(), text.size(), &reader) == TEXTIO_OK,
            "units can be read");
    require(records_of(test::Reader(reader).get()) == records, "units have the same records");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const test::Hints hints = any_hints(input);
    const Pieces pieces{{}, 1 + input.size(1000) % 5000, input.size(SIZE_MAX)};
    const auto text_bytes = input.text_bytes();
    const std::string bytes(text_bytes.begin(), text_bytes.end());

    textio_layout* found = nullptr;
    const textio_status status =
        textio_detect_utf8(bytes.data(), bytes.size(), hints.get(), &found);
    if (status != TEXTIO_OK) {
        require(status == TEXTIO_BAD_VALUE && found == nullptr, "only contradictions are refused");
        return 0;
    }
    const test::Layout layout(found);
    size_t length = 0;
    const std::string json = textio_layout_json(found, &length);
    check_text(json.c_str(), length);
    require(textio_layout_proposals(found) > 0, "there is a proposal");
    for (size_t proposal = 0; proposal < textio_layout_proposals(found); ++proposal) {
        check_proposal(found, proposal);
    }

    const std::u16string text = textio::utf8::decode(bytes).text;
    textio_layout* other = nullptr;
    require(textio_detect_utf16(text.data(), text.size(), hints.get(), &other) == TEXTIO_OK &&
                json == textio_layout_json(test::Layout(other).get(), nullptr),
            "units have the same layout");
    Pieces source{bytes, pieces.piece, SIZE_MAX};
    require(textio_detect_source(Pieces::read, &source, hints.get(), &other) == TEXTIO_OK &&
                json == textio_layout_json(test::Layout(other).get(), nullptr),
            "pieces have the same layout");
    check_reading(found, bytes, text, {bytes, pieces.piece, pieces.failing});
    return 0;
}
