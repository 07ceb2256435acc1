/// \file
/// The one loop that walks through a text, record by record, and hands the records on.
///
/// It runs with any of the three readers: `RecordReader` says what one must supply.
#pragma once

#include "parser/line_marks.hpp"
#include "parser/parser_exception.hpp"
#include "parser/short_way/gate.hpp"
#include "parser/short_way/plain_records.hpp"
#include "sample/sample_writer.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <concepts>
#include <cstddef>
#include <optional>

namespace textio::parser {

/// Where content starts on the line at `from`: behind blanks, unless a reader says otherwise.
template <class Reader>
std::size_t skip_to_content(const Reader& reader, const Field& text, std::size_t from) {
    return reader.blanks.skip(text, from);
}

/// What the record loop needs of a reader:
/// - `read_record` reads the record at the start of a text, and gives whether the record counts as
///   a row even when it is blank;
/// - `skip_to_content` gives where content starts on the line at a position;
/// - `comment_keeps_columns` tells whether text behind a block comment is read with the blanks in
///   front, and `blank_lines_are_empty` whether a line of blanks is an empty line;
/// - `marks` are its line endings, also as `guarded_line_ends`, and its comments;
/// - `blanks` finds whitespace;
/// - for the short way, `take_plain_records` reads records until one is not plain, and
///   `has_plain_records`, `unplain_starts` and `field_limit`, the limit on fields of a record under
///   which that is so, are told in short_way/gate.hpp.
template <class Reader>
concept RecordReader = requires(const Reader reader, const Field text, Record record,
                                PlainRecords records) {
    { read_record(reader, text, record) } -> std::same_as<bool>;
    { skip_to_content(reader, text, text.size) } -> std::same_as<std::size_t>;
    { Reader::comment_keeps_columns } -> std::convertible_to<bool>;
    { Reader::blank_lines_are_empty } -> std::convertible_to<bool>;
    { reader.blanks } -> std::convertible_to<const UnitSearch&>;
    { *reader.marks } -> std::convertible_to<const LineMarks&>;
    { reader.guarded_line_ends } -> std::convertible_to<const GuardedDelim&>;
    take_plain_records(reader, records);
    { reader.has_plain_records } -> std::convertible_to<bool>;
    { unplain_starts(reader) } -> std::convertible_to<std::u16string_view>;
    { reader.field_limit } -> std::convertible_to<std::size_t>;
};

/// What follows the comment from `start` to `end` of `text`, as `skip_comment` gave it.
template <RecordReader Reader>
CommentEnd finish_comment(const Reader& reader, const Field& text, std::size_t start,
                          std::size_t end) {
    if (!reader.marks->has_block_comments()) {
        return {end, 1, true};
    }
    const std::size_t lines = reader.marks->count_comment_lines(text, start, end);
    const std::size_t content = skip_to_content(reader, text, end);
    if (text.unit_at(content) == end_of_text) {
        return {content, lines, true};
    }
    if (const std::size_t length = reader.guarded_line_ends.match_at(text, content); length != 0) {
        return {content + length, lines, true};
    }
    return {Reader::comment_keeps_columns ? end : content, lines, false};
}

/// The state of one run of the loop, which needs no more of the builder than an array to begin
/// with.
template <class Reader>
class RecordLoop {
public:
    RecordLoop(const options& options, const Reader& reader, ReadLimits limits, Field& text,
               output::DetectionOutputBuilder& builder)
        : options_(options), reader_(reader), marks_(*reader.marks), limits_(limits), text_(text),
          builder_(builder), sample_(*builder.field_array, text, limits.rows) {
        marks_.forget_text();
    }

    /// Where a read fails, the array holds the lines before the one that failed.
    ReadCounts run() {
        try {
            read();
        } catch (...) {
            sample_.give_record_back();
            throw;
        }
        return counts_;
    }

private:
    void read() {
        std::optional<PlainRecords> plain;
        if (is_wanted() && is_short_way_open(reader_, options_, builder_)) {
            plain.emplace(line_shape(), limits_, text_, counts_, sample_);
        }
        // What stands behind a comment is a record, even if it looks like a comment or, as a blank
        // that is kept for its column, like the end of the text.
        bool behind_comment = false;
        while (is_within_limits() && (behind_comment || is_at_text())) {
            if (plain) {
                plain->resume(behind_comment);
                take_plain_records(reader_, *plain);
                plain->pause();
                behind_comment = plain->is_behind_comment();
                if (!is_within_limits() || !(behind_comment || is_at_text())) {
                    break;
                }
            }
            const Passed passed = behind_comment ? Passed::nothing : pass_comments();
            if (passed == Passed::nothing) {
                take_record();
            }
            behind_comment = passed == Passed::start_of_line;
        }
    }

    [[nodiscard]] bool is_within_limits() const {
        return counts_.rows < limits_.rows && counts_.lines < limits_.lines;
    }

    [[nodiscard]] bool is_at_text() const { return text_.unit_at(0) != end_of_text; }

    [[nodiscard]] bool is_wanted() const { return is_within_limits() && is_at_text(); }

    [[nodiscard]] LineShape line_shape() const {
        return {reader_.blanks,
                reader_.guarded_line_ends,
                std::u16string_view(marks_.opener()).substr(0, 1),
                unplain_starts(reader_),
                options_.empty_line_rule == empty_line::keep,
                Reader::blank_lines_are_empty};
    }

    /// The comments in front of what stands here now.
    enum class Passed : std::uint8_t { nothing, lines, start_of_line };

    /// Passes the comments that stand here, up to one with text behind it on its line.
    Passed pass_comments() {
        Passed passed = Passed::nothing;
        while (!marks_.opener().empty() && is_wanted() && passed != Passed::start_of_line) {
            const std::size_t start = content_start();
            const std::size_t end = marks_.skip_comment(text_, start);
            if (end <= start) {
                break;
            }
            passed = pass_comment(start, end) ? Passed::lines : Passed::start_of_line;
        }
        return passed;
    }

    /// Passes the comment from `start` to `end`. Gives whether its line ends with it.
    bool pass_comment(std::size_t start, std::size_t end) {
        const CommentEnd comment = finish_comment(reader_, text_, start, end);
        text_.advance(comment.resume_at);
        counts_.consumed += comment.resume_at;
        keep_lines_of(comment);
        return comment.line_ended;
    }

    /// Where content starts on the line at hand. If blanks can end lines too, a run of blanks is
    /// many lines with the same content behind them; that content is looked for once.
    std::size_t content_start() {
        if (text_.data >= blanks_end_) {
            const std::size_t blanks = reader_.blanks.skip(text_, 0);
            blanks_end_ = text_.data + blanks;
            content_ = text_.data + skip_to_content(reader_, text_, blanks);
        }
        return static_cast<std::size_t>(content_ - text_.data);
    }

    /// Keeps one line without fields for each line that the comment took up entirely, so that a
    /// line of the array stays a line of the text.
    void keep_lines_of(const CommentEnd& comment) {
        const std::size_t touched = comment.lines + (comment.line_ended ? 1U : 0U);
        const std::size_t taken_up = touched == 0 ? 0 : touched - 1;
        sample_.add_empty_lines(taken_up, text_.data);
        counts_.lines += taken_up;
    }

    void take_record() {
        record_.spans.clear();
        record_.consumed = 0;
        const bool counts_when_blank = read_marked_record();
        if (counts_when_blank || !is_blank()) {
            builder_.add_record(text_, record_);
            ++counts_.rows;
        } else {
            take_empty_line();
        }
        text_.advance(record_.consumed);
        counts_.consumed += record_.consumed;
        ++counts_.lines;
    }

    bool read_marked_record() {
        try {
            return read_record(reader_, text_, record_);
        } catch (exception::partial_field_error& error) {
            error.record = counts_.rows;
            throw;
        }
    }

    [[nodiscard]] bool is_blank() const {
        if (record_.spans.empty()) {
            return true;
        }
        const std::size_t end = record_.spans.back();
        return reader_.blanks.skip(Field(text_.data, end), 0) == end;
    }

    void take_empty_line() {
        switch (options_.empty_line_rule) {
        case empty_line::keep:
            builder_.add_record(text_, record_);
            break;
        case empty_line::error: {
            exception::empty_line_rule error;
            error.record = counts_.rows;
            throw error;
        }
        default:
            break;
        }
    }

    const options& options_;
    const Reader& reader_;
    const LineMarks& marks_;
    const ReadLimits limits_;
    Field& text_;
    output::DetectionOutputBuilder& builder_;
    SampleWriter sample_;
    Record record_;
    ReadCounts counts_;
    const char16_t* blanks_end_ = nullptr; ///< of the blanks that were skipped last
    const char16_t* content_ = nullptr;    ///< the content behind them
};

/// Reads up to `max_rows` rows and `max_lines` lines of `text`, moves `text` to what was not read,
/// and adds the records to the array of `builder`.
template <RecordReader Reader>
ReadCounts read_records(const options& options, const Reader& reader, std::size_t max_rows,
                        std::size_t max_lines, Field& text,
                        output::DetectionOutputBuilder& builder) {
    return RecordLoop(options, reader, {max_rows, max_lines}, text, builder).run();
}

} // namespace textio::parser
