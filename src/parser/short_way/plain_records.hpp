/// \file
/// The place of a read in its text while it goes the short way (see gate.hpp).
#pragma once

#include "sample/sample_writer.hpp"
#include "search/guarded_delim.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace textio::parser {

/// How far a read came.
struct ReadCounts {
    std::size_t consumed = 0; ///< code units passed
    std::size_t lines = 0;    ///< lines of the text passed
    std::size_t rows = 0;     ///< lines that counted as rows
};

/// How far a read may go.
struct ReadLimits {
    std::size_t rows;
    std::size_t lines;
};

/// How the lines of a read begin and end.
struct LineShape {
    const UnitSearch& blanks;
    const GuardedDelim& line_ends;
    std::u16string_view comment_start;  ///< the unit with which comments start, if there are any
    std::u16string_view unplain_starts; ///< what else no plain record starts with
    bool keeps_empty_lines;             ///< an empty line becomes a line without fields
    bool blank_lines_are_empty;         ///< so does a line of blanks
};

/// A cursor that goes from one plain record to the next, takes the empty lines between them, and
/// keeps to the limits. The fields of a record are added as they are found.
///
/// The order of calls:
///
///     { resume  { at_record  { sample().add_... }  ( end_record | give_record_back ) }  pause }
class PlainRecords {
public:
    /// A run through `text` that fills `sample`, both of which outlive it.
    PlainRecords(const LineShape& shape, ReadLimits limits, Field& text, ReadCounts& counts,
                 SampleWriter& sample);

    /// Starts where the text stands now. With `behind_comment`, what stands there is a record and
    /// no further comment.
    void resume(bool behind_comment) noexcept;

    /// Moves the text on to the first record that was not taken.
    void pause() noexcept;

    /// Whether nothing was taken since `resume` with `behind_comment`.
    [[nodiscard]] bool is_behind_comment() const noexcept { return start_ == behind_comment_; }

    /// Whether a record that may be plain starts at `start()`. Takes empty lines on the way.
    [[nodiscard]] bool at_record() {
        return is_wanted() && (!unplain_starts_.contains(*start_) || at_record_behind_blanks());
    }

    [[nodiscard]] const char16_t* start() const noexcept { return start_; } ///< of the record
    [[nodiscard]] const char16_t* end() const noexcept { return end_; }     ///< of the text
    [[nodiscard]] SampleWriter& sample() const noexcept { return sample_; }

    /// Whether blanks, a comment, or the end of the line or text may stand at `at`.
    [[nodiscard]] bool is_unplain_start(const char16_t* at) const noexcept {
        return at == end_ || unplain_starts_.contains(*at);
    }

    /// Ends the record at `at` if the text or, where no text ends, a line ends there. Gives whether
    /// one does.
    [[nodiscard]] bool end_record(const char16_t* at) {
        const std::size_t length = at == end_ ? 0 : line_ending_at(at);
        const bool is_end = length != 0 || at == end_;
        if (is_end) {
            sample_.end_record(at + length);
            start_ = at + length;
            ++taken_;
        }
        return is_end;
    }

    /// Takes back the fields of the record at `start()`.
    void give_record_back() { sample_.give_record_back(); }

private:
    [[nodiscard]] bool is_wanted() const noexcept { return taken_ < most_taken_ && start_ < end_; }

    /// The length of the line ending at `at`, where no text ends; 0 if none is there.
    [[nodiscard]] std::size_t line_ending_at(const char16_t* at) const noexcept {
        return *at == usual_line_end_ ? 1 : other_line_ending_at(at);
    }
    [[nodiscard]] std::size_t other_line_ending_at(const char16_t* at) const noexcept;

    [[nodiscard]] bool at_record_behind_blanks();
    [[nodiscard]] const char16_t* end_of_blanks(const char16_t* at) const noexcept;
    [[nodiscard]] bool take_empty_line(const char16_t* at);
    void take_usual_empty_lines();
    void take_empty_lines(const char16_t* next, std::size_t count);

    const UnitSearch& blanks_;
    const GuardedDelim& line_ends_;
    const char32_t usual_line_end_;       ///< one unit that is a line ending by itself, or none
    const UnitSet unplain_rests_;         ///< what a rest of a line may start with and not be plain
    const UnitSet unplain_behind_blanks_; ///< what a record may hold behind blanks and not be plain
    const UnitSet unplain_starts_;        ///< the same, blanks and what begins a line ending
    const bool keeps_empty_lines_;
    const bool blank_lines_are_empty_;
    const bool usual_empty_lines_; ///< nothing but an empty line starts with the usual line ending
    const ReadLimits limits_;
    Field& text_;
    ReadCounts& counts_;
    SampleWriter& sample_;
    const char16_t* const end_;
    const char16_t* start_;

    // Since the last `resume`:
    const char16_t* behind_comment_ = nullptr; ///< where it started, if behind a comment
    std::size_t taken_ = 0;                    ///< records taken
    std::size_t empty_lines_ = 0;              ///< lines without fields taken
    std::size_t rows_wanted_ = 0;              ///< records that the limit of rows allows
    std::size_t lines_wanted_ = 0;             ///< lines that the limit of lines allows
    std::size_t most_taken_ = 0;               ///< how many records both allow
};

} // namespace textio::parser
