/// \file
/// From the answer to the data: reads a text record by record under a layout that was found.
#pragma once

#include "textio/advice.hpp"
#include "textio/export.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/platform/text_stream.hpp"
#include "textio/strategy.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace textio::reading {

/// What is wrong with a record, if anything.
enum class Fault : std::uint8_t {
    none,
    too_few_fields,
    too_many_fields, ///< of fixed widths: more than blanks stands behind the last one
    open_quote,      ///< the text ends inside a quoted field
    too_long,        ///< the record, or a comment, is longer than may be kept in memory
};

/// What is done with a record that has a fault. One that is too long always ends the reading.
enum class Policy : std::uint8_t {
    keep, ///< it is given as it is
    pad,  ///< it is given, with empty fields for those that it lacks; none is taken away
    skip, ///< it is passed over
    stop, ///< the reading ends in front of it
};

/// A record with a fault, as it is told.
struct Irregular {
    Fault fault;          ///< what is wrong with it
    std::size_t line;     ///< the line of the text on which it starts, from 0
    std::size_t expected; ///< fields that it should have
    std::size_t found;    ///< fields that it has; of a record that is too long, 0
};

/// Why a reading has ended.
enum class End : std::uint8_t {
    not_yet,
    of_text,
    at_mark,  ///< a record starts with `end_of_text`, which ends every reading
    stopped,  ///< at a record with a fault, as the policy says
    too_long, ///< at a record that is too long
};

/// How a text is read on.
struct Settings {
    Policy policy = Policy::keep; ///< what becomes of a record with a fault

    /// Is given each record with a fault, before the policy is followed. What it throws passes
    /// through, and the reading then stands behind that record.
    std::function<void(const Irregular&)> tell{};

    /// The fields of a regular record. 0: as many as the layout has columns or, if that was not
    /// valued, as the first record has fields.
    std::size_t fields = 0;

    /// A stream is read in pieces of so many code units, at least 1.
    std::size_t chunk_units = 0x10000;

    /// A record of a stream is kept together up to this length at least, in code units.
    std::size_t longest_record = 0x1000000;
};

/// Reads the records of one text, from the first line of the data to the end. The fields of a
/// record are those that the sample of the layout has, or would have if it went so far.
///
/// \code
/// textio::reading::Reader reader(*layout, textio::Field(text));
/// std::u16string buffer;
/// while (reader.next()) {
///     for (const textio::Field& field : reader.fields()) {
///         use(textio::reading::cell_value(field, reader.options(), buffer));
///     }
/// }
/// \endcode
///
/// Blank lines and comments are passed over. Under a layout that does not keep empty cells at the
/// end of a line (fixed widths, or trailing delimiters dropped where a delimiter separates) a
/// record with too few fields is no fault; it is padded as others are.
///
/// A text in memory must outlive the reader, and its fields are good as long as it is. A stream is
/// read from its position on, and its position is moved; what has been read is dropped from its
/// buffer, which then needs the memory for one chunk or one record. Fields of a stream are good
/// until `next` is called again.
///
/// Throws `std::bad_alloc` and what the source of a stream throws; then `next` can be called again.
class TEXTIO_EXPORT Reader {
public:
    /// Reads under the layout of `layout` behind its header, which is taken for none while it is
    /// undecided. Copies what it needs of the layout.
    Reader(const GenericStrategy& layout, const Field& text, Settings settings = {});

    /// The same over a stream, which must outlive the reader.
    Reader(const GenericStrategy& layout, zentor::io::text::stream::TextStream& stream,
           Settings settings = {});

    /// Reads from the first line with data of a proposal.
    Reader(const advice::Proposal& proposal, const Field& text, Settings settings = {});

    /// The same over a stream, which must outlive the reader.
    Reader(const advice::Proposal& proposal, zentor::io::text::stream::TextStream& stream,
           Settings settings = {});

    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader();

    /// Goes to the next record. Gives whether there is one.
    bool next() {
        for (; lines_.next != lines_.plain_end; ++lines_.next) {
            const std::size_t count = *lines_.next - lines_.begin;
            if (count == lines_.regular) {
                fields_ = std::span(lines_.fields + lines_.begin, count);
                fault_ = Fault::none;
                lines_.begin = *lines_.next++;
                return true;
            }
            if (count != 0) {
                break;
            }
        }
        return look_closer();
    }

    /// The fields of the record, raw, with blanks and quotes; good until `next` is called.
    [[nodiscard]] std::span<const Field> fields() const noexcept { return fields_; }

    /// What is wrong with the record.
    [[nodiscard]] Fault fault() const noexcept { return fault_; }

    /// The line of the text on which the record starts, from 0. Counts lines inside quotes too.
    [[nodiscard]] std::size_t line() const noexcept;

    /// Why `next` found no record.
    [[nodiscard]] End end() const noexcept;

    /// The options under which it reads, as `cell_value` wants them.
    [[nodiscard]] const parser::options& options() const noexcept;

private:
    class State;

    /// The lines in memory that come next.
    struct Lines {
        const Field* fields = nullptr;
        const std::size_t* next = nullptr;      ///< the end of the next one's fields
        const std::size_t* plain_end = nullptr; ///< from here on, each needs a closer look
        const std::size_t* end = nullptr;
        std::size_t begin = 0;          ///< where the next one's fields begin
        std::size_t regular = SIZE_MAX; ///< fields of a record that has no fault
    };

    bool look_closer();

    std::unique_ptr<State> state_;
    Lines lines_;
    std::span<const Field> fields_;
    Fault fault_ = Fault::none;
};

/// The value of a cell that was read under `options`: without the blanks around it, without the
/// quotes around it, and with one quote for each doubled one. Where fields do not end at
/// delimiters, quotes are taken off only if they frame the whole cell.
///
/// A view of the text of `cell` where nothing changes in the middle, else of `buffer`, which is
/// written to. Throws `std::bad_alloc` if the buffer cannot grow.
[[nodiscard]] TEXTIO_EXPORT std::u16string_view
cell_value(const Field& cell, const parser::options& options, std::u16string& buffer);

} // namespace textio::reading
