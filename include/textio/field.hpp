/// \file
/// The field model: views of UTF-16 text, and what a read sample consists of.
///
/// All lengths and positions count UTF-16 code units, never bytes or characters.
#pragma once

#include "textio/export.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace textio {

/// The code unit that stands for the absence of text. A read at or past the end of a text gives it,
/// and a record that starts with it is taken for the end of the text.
inline constexpr char16_t end_of_text = 0xFFFF;

/// A view of UTF-16 text that owns nothing. The sample text is one, and so is every field cut from
/// it. Whoever holds a `Field` keeps the text alive.
class TEXTIO_EXPORT Field {
public:
    /// A view of nothing.
    Field() noexcept = default;

    /// A view of the `count` code units from `first` on, which need no terminator.
    Field(const char16_t* first, std::size_t count) noexcept : data(first), size(count) {}

    /// A view of `text`; the characters that `text` views must outlive the field.
    explicit Field(std::u16string_view text) noexcept : data(text.data()), size(text.size()) {}

    /// A second view of the same text.
    Field(const Field&) noexcept = default;

    /// Views the same text as the other field from here on.
    Field& operator=(const Field&) noexcept = default;

    /// Takes the view over and leaves `other` a view of nothing.
    Field(Field&& other) noexcept : data(other.data), size(other.size) { other.clear(); }

    /// Takes the view over and leaves `other` a view of nothing, unless both are the same object.
    Field& operator=(Field&& other) noexcept {
        if (this != &other) {
            data = other.data;
            size = other.size;
            other.clear();
        }
        return *this;
    }

    virtual ~Field() = default;

    /// Moves the start of the view forward by `units` code units, but never past its end.
    void advance(std::size_t units) noexcept {
        const std::size_t step = units < size ? units : size;
        data += step;
        size -= step;
    }

    /// The code unit at `position`, or `end_of_text` at or past the end.
    [[nodiscard]] char16_t unit_at(std::size_t position) const noexcept {
        return position < size ? data[position] : end_of_text;
    }

    /// The same view as the standard library's type.
    [[nodiscard]] std::u16string_view view() const noexcept { return {data, size}; }

    const char16_t* data = nullptr; ///< first code unit; null in a view of nothing
    std::size_t size = 0;           ///< number of code units

private:
    void clear() noexcept {
        data = nullptr;
        size = 0;
    }
};

/// A field whose text can be changed. It starts as a view; the first real change takes a private
/// copy, held inside the object up to 31 code units and on the heap from 32 on. Cutting units off
/// either end needs no copy: move `data` and lower `size`.
class TEXTIO_EXPORT MutableField : public Field {
public:
    /// A view of the text of `field`, which must outlive this object until a copy is made.
    explicit MutableField(const Field& field) noexcept : Field(field.data, field.size) {}

    MutableField(const MutableField&) = delete;
    MutableField& operator=(const MutableField&) = delete;
    ~MutableField() override;

    /// Makes the private copy if there is none yet, and gives its units: `size` of them, at `data`.
    /// Throws `std::bad_alloc` when a copy on the heap cannot be had; the view is then unchanged.
    char16_t* writable_units();

    bool owns_copy = false;         ///< a private copy exists, and `data` points into it
    char16_t inline_units[32];      ///< room for a short copy
    char16_t* copy_begin = nullptr; ///< start of the copy: `inline_units` or a heap array
    char16_t* copy_end = nullptr;   ///< one past the end of the copy
};

/// A read sample: the fields of all lines, and where each line's fields end.
///
/// Line `i` owns the fields from `line_ends[i - 1]` (0 for the first line) up to, not including,
/// `line_ends[i]`. `line_ends` never falls, and its last entry is the number of fields. Lines are
/// lines as they were read: empty lines and comment lines are lines without fields. Every field is
/// a view of the sample text and shows it raw, with quotes and blanks; the text must outlive it.
class TEXTIO_EXPORT FieldArray {
public:
    /// Appends a line without fields.
    void add_empty_line();

    /// Appends a line with copies of the `count` fields from `first` up to `last`.
    void add_line(const Field* first, const Field* last, std::size_t count);

    /// The number of lines.
    [[nodiscard]] std::size_t line_count() const noexcept { return line_ends.size(); }

    /// The fields of line `line`, which must be below `line_count()`. The span is good until the
    /// array is next changed.
    [[nodiscard]] std::span<const Field> line(std::size_t line) const noexcept {
        const std::size_t begin = line == 0 ? 0 : line_ends[line - 1];
        return std::span<const Field>(fields).subspan(begin, line_ends[line] - begin);
    }

    std::vector<Field> fields;          ///< the fields of all lines, line after line
    std::vector<std::size_t> line_ends; ///< per line, the number of fields up to and including it
};

/// One record as a reader found it, before it becomes fields.
struct Record {
    /// Start and end of each field in turn, in code units from the start of the record; an end is
    /// one past the field's last unit.
    std::vector<std::size_t> spans;

    /// Code units from the start of the record to the start of the next, line ending included.
    std::size_t consumed = 0;
};

namespace parser {
class LineMarks;
}

namespace output {

/// Carries what one detection run reads: the text, how much of it, and the array being filled.
struct TEXTIO_EXPORT DetectionOutputBuilder {
    /// Adds `record` to `field_array`, its spans taken as positions in `text`. A record without
    /// fields, or with one field that is empty or all whitespace, becomes an empty line. With
    /// `limit_fields` set, at most `field_limit` fields are kept. Needs `field_array` and
    /// `whitespace` to be set.
    void add_record(const Field& text, const Record& record);

    const Field* text = nullptr;                ///< the whole sample text, not owned
    std::unique_ptr<FieldArray> field_array;    ///< the array being filled; empty between reads
    std::size_t sample_lines = 0;               ///< rows to read, fixed header lines not counted
    bool limit_fields = false;                  ///< keep at most `field_limit` fields of a record
    std::size_t field_limit = SIZE_MAX;         ///< that limit, in fields
    std::unique_ptr<std::u16string> whitespace; ///< whitespace of the layout being read
    std::shared_ptr<const parser::LineMarks> line_marks; ///< left by a read for the next one
};

} // namespace output
} // namespace textio
