/// \file
/// The short way through a text: records that need no second thought go straight into the array.
///
/// Most records of most texts are plain: each of their ends is what it looks like. The readers take
/// such records in tight loops of their own, with no `Record` in between, and pass empty lines and
/// comments on the way. Whatever may not be plain is left where it stands for the record loop,
/// which reads it by the full set of rules and then goes the short way again. Both ways give the
/// same fields.
#pragma once

#include "parser/guarded_delim.hpp"
#include "parser/plain_comments.hpp"
#include "parser/unit_search.hpp"
#include "parser/write_ahead.hpp"
#include "textio/field.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
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
    const CommentScanner* comments;     ///< null if there are none
    bool comment_keeps_columns;         ///< blanks behind a comment belong to what follows it
    std::u16string_view skipped_starts; ///< delimiters passed in front of content
    std::u16string_view unplain_starts; ///< units with which no plain record starts, behind blanks
    bool keeps_empty_lines;             ///< an empty line becomes a line without fields
    bool blank_lines_are_empty;         ///< so does a line of blanks
};

/// The place of a read in its text, while it goes the short way, and the array that it fills. The
/// fields of a record are added as they are found; a record that turns out not to be plain is given
/// back.
class PlainRecords {
public:
    /// A run through `text` that fills `array`, both of which outlive it.
    PlainRecords(const LineShape& shape, ReadLimits limits, Field& text, ReadCounts& counts,
                 FieldArray& array);

    /// Starts where the text stands now.
    void resume() noexcept;

    /// Moves the text on to the first record that was not taken.
    void pause() noexcept;

    /// Whether the text that was moved on starts behind a comment, on its line: a record starts
    /// there then, and no further comment.
    [[nodiscard]] bool is_behind_comment() const noexcept { return start_ == behind_comment_; }

    /// Whether a record that may be plain starts at `start()`. Takes empty lines and comments on
    /// the way.
    [[nodiscard]] bool at_record() {
        return is_wanted() && (!unplain_starts_.contains(*start_) || at_record_behind_blanks());
    }

    [[nodiscard]] const char16_t* start() const noexcept { return start_; } ///< of the record
    [[nodiscard]] const char16_t* end() const noexcept { return end_; }     ///< of the text

    /// Whether blanks, a comment, or the end of the line or text may stand at `at`.
    [[nodiscard]] bool is_unplain_start(const char16_t* at) const noexcept {
        return at == end_ || unplain_starts_.contains(*at);
    }

    void add_field(const char16_t* begin, const char16_t* end) {
        fetch_ahead(&array_.fields.emplace_back(begin, static_cast<std::size_t>(end - begin)));
    }

    /// Adds an empty field at each unit from `begin` up to `end`.
    void add_empty_fields(const char16_t* begin, const char16_t* end);

    /// Where a record that starts at `start()` is so long that it asks for room itself, or the end.
    [[nodiscard]] const char16_t* first_checkpoint() const noexcept { return checkpoint(start_); }

    /// Makes room in a record that has come up to `at`. Gives the next checkpoint.
    [[nodiscard]] const char16_t* make_room_within_record(const char16_t* at);

    /// Ends the record at `at` if the text or, where no text ends, a line ends there. Gives whether
    /// one does.
    [[nodiscard]] bool end_record(const char16_t* at) {
        const std::size_t length = at == end_ ? 0 : line_ending_at(at);
        const bool is_end = length != 0 || at == end_;
        if (is_end) {
            take_record(at + length);
        }
        return is_end;
    }

    /// Takes back the fields of the record at `start()`.
    void give_record_back();

private:
    /// Room for so many fields is kept in the array, so that it seldom grows within a record.
    static constexpr std::size_t spare_fields = 64;
    /// A record of more units asks for room now and then.
    static constexpr std::ptrdiff_t long_record = 4096;

    [[nodiscard]] const char16_t* checkpoint(const char16_t* at) const noexcept {
        return end_ - at > long_record ? at + long_record : end_;
    }
    [[nodiscard]] bool is_wanted() const noexcept { return taken_ < most_taken_ && start_ < end_; }
    [[nodiscard]] std::size_t lines_left() const noexcept {
        return lines_wanted_ - taken_ - empty_lines_;
    }

    /// The length of the line ending at `at`, where no text ends; 0 if none is there.
    [[nodiscard]] std::size_t line_ending_at(const char16_t* at) const noexcept {
        return *at == usual_line_end_ ? 1 : unusual_line_ending_at(at);
    }
    [[nodiscard]] std::size_t unusual_line_ending_at(const char16_t* at) const noexcept;

    void take_record(const char16_t* next) {
        const std::size_t fields = array_.fields.size();
        array_.line_ends.push_back(fields);
        ++taken_;
        start_ = next;
        if (fields >= roomy_fields_) {
            make_room(start_, counts_.rows + taken_);
        }
    }

    [[nodiscard]] const char16_t* skip_blanks(const char16_t* at) const noexcept {
        return at == end_ || !blanks_.set().contains(*at) ? at : end_of_blanks(at);
    }
    [[nodiscard]] const char16_t* end_of_blanks(const char16_t* at) const noexcept;

    [[nodiscard]] bool at_record_behind_blanks();
    [[nodiscard]] bool take_comment(const char16_t* at);
    [[nodiscard]] bool take_unusual_rest(const char16_t* behind, const char16_t* content,
                                         std::size_t lines);
    [[nodiscard]] bool take_empty_line(const char16_t* at);
    void take_usual_empty_lines();

    void take_empty_lines(const char16_t* next, std::size_t count) {
        std::vector<std::size_t>& line_ends = array_.line_ends;
        if (count == 1 && line_ends.size() < line_ends.capacity()) {
            line_ends.push_back(array_.fields.size());
        } else {
            add_line_ends(next, count);
        }
        empty_lines_ += count;
        most_taken_ = std::min(rows_wanted_, lines_wanted_ - empty_lines_);
        start_ = next;
    }
    /// Starts a record on the line on which a block comment of `lines` lines ends at `behind`, with
    /// blanks and what else is passed up to `content`.
    void start_behind_comment(const char16_t* behind, const char16_t* content, std::size_t lines) {
        take_empty_lines(comment_keeps_columns_ ? behind : content, lines - 1);
        behind_comment_ = start_;
    }
    void add_line_ends(const char16_t* next, std::size_t count);
    [[nodiscard]] double expected_growth(const char16_t* at, std::size_t rows) const noexcept;
    void make_room(const char16_t* at, std::size_t rows);
    void make_room_for_lines(const char16_t* at, std::size_t count);

    const UnitSearch& blanks_;
    const GuardedDelim& line_ends_;
    const char32_t usual_line_end_; ///< one unit that is a line ending by itself, or none
    UnitSet unplain_starts_;        ///< what a record may start with and not be plain
    UnitSet unplain_behind_blanks_; ///< the same without the blanks and what begins a line ending
    UnitSet unplain_rests_;         ///< what the rest of a line may start with and not be plain
    UnitSet unusual_rests_;         ///< the same and what no content starts with
    UnitSet skipped_starts_;        ///< what is passed between a comment and the rest of its line
    const bool keeps_empty_lines_;
    const bool blank_lines_are_empty_;
    const bool comment_keeps_columns_;
    const bool usual_empty_lines_; ///< nothing but an empty line starts with the usual line ending
    const ReadLimits limits_;
    Field& text_;
    ReadCounts& counts_;
    FieldArray& array_;
    const char16_t* const begin_;
    const char16_t* const end_;
    const char16_t* start_;
    std::optional<PlainComments> comments_;    ///< none if comments are not plain
    const char16_t* behind_comment_ = nullptr; ///< behind the last comment with text on its line
    std::size_t roomy_fields_ = 0;             ///< with fewer, the array has room for more

    // Since the last `resume()`:
    std::size_t taken_ = 0;        ///< records taken
    std::size_t empty_lines_ = 0;  ///< lines without fields taken
    std::size_t rows_wanted_ = 0;  ///< records that the limit of rows allows
    std::size_t lines_wanted_ = 0; ///< lines that the limit of lines allows
    std::size_t most_taken_ = 0;   ///< how many records both allow
};

} // namespace textio::parser
