/// \file
/// How a read fills the array of its sample.
#pragma once

#include "textio/field.hpp"

#include <cstddef>
#include <vector>

namespace textio::parser {

/// Adds fields and lines to an array, and makes room for as many as the text is likely to hold, so
/// that a large sample is moved once and not at every doubling.
///
/// The order of calls, where `{}` is any number of times and `|` a choice:
///
///     { add_empty_lines | { add_field | add_empty_fields | make_room_within_record }
///                         ( end_record | give_record_back ) }
class SampleWriter {
public:
    /// Fills `array`, which outlives it, with what is read of `text`: at most `rows` rows.
    SampleWriter(FieldArray& array, const Field& text, std::size_t rows)
        : array_(array), begin_(text.data), end_(text.data + text.size), rows_(rows) {
        make_first_room();
    }

    /// Adds the field from `begin` up to `end` to the record at hand.
    void add_field(const char16_t* begin, const char16_t* end) {
        array_.fields.emplace_back(begin, static_cast<std::size_t>(end - begin));
    }

    /// Adds an empty field at each unit from `begin` up to `end`.
    void add_empty_fields(const char16_t* begin, const char16_t* end);

    /// Makes a line of the fields added since the last one. The next line starts at `next`.
    void end_record(const char16_t* next) {
        const std::size_t fields = array_.fields.size();
        array_.line_ends.push_back(fields);
        if (fields >= roomy_fields_) {
            make_room(next);
        }
    }

    /// Takes back the fields added since the last line.
    void give_record_back();

    /// Adds so many lines without fields, which end at `next`.
    void add_empty_lines(std::size_t count, const char16_t* next) {
        std::vector<std::size_t>& line_ends = array_.line_ends;
        if (count == 1 && line_ends.size() < line_ends.capacity()) {
            line_ends.push_back(array_.fields.size());
        } else {
            add_line_ends(count, next);
        }
    }

    /// Where a record that has come up to `at` is so long that it has to ask for room, or the end
    /// of the text.
    [[nodiscard]] const char16_t* checkpoint(const char16_t* at) const noexcept {
        return end_ - at > long_record ? at + long_record : end_;
    }

    /// Makes room in a record that has come up to the checkpoint `at`. Gives the next checkpoint.
    [[nodiscard]] const char16_t* make_room_within_record(const char16_t* at);

private:
    /// Room for so many fields is kept in the array, so that it seldom grows within a record.
    static constexpr std::size_t spare_fields = 64;
    /// A record of more units asks for room now and then.
    static constexpr std::ptrdiff_t long_record = 4096;

    void make_first_room();
    void add_line_ends(std::size_t count, const char16_t* next);
    [[nodiscard]] double expected_growth(const char16_t* at) const noexcept;
    void make_room(const char16_t* at);
    void make_room_for_lines(const char16_t* at, std::size_t count);

    FieldArray& array_;
    const char16_t* begin_; ///< of the text
    const char16_t* end_;
    std::size_t rows_;
    std::size_t roomy_fields_ = 0; ///< with fewer, the array has room for more
};

} // namespace textio::parser
