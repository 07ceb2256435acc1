/// \file
/// The one loop that walks through a text, record by record, and hands the records on.
///
/// It runs with any of the three readers. A reader supplies, as free functions and members:
/// - `read_record(reader, text, record)`: reads the record at the start of `text`, and gives
///   whether the record counts as a row even when it is blank;
/// - `skip_to_content(reader, text, from)`: where content starts on the line at `from`;
/// - `comment_keeps_columns`: whether text behind a block comment is read with the blanks in front;
/// - `take_plain_records(reader, records)`: reads plain records until one is not, with
///   `has_plain_records` if there can be any, `field_limit` as the limit on fields of a record
///   under which that is so, `unplain_starts()` that none of them begins with,
///   `skipped_starts()` that `skip_to_content` skips behind blanks, and `blank_lines_are_empty` if
///   a line of blanks is an empty line;
/// - `blanks()` and `guarded_line_ends`.
#pragma once

#include "parser/comment_scanner.hpp"
#include "parser/parser_exception.hpp"
#include "parser/plain_records.hpp"
#include "parser/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <memory>
#include <optional>

namespace textio::parser {

/// What follows the comment from `start` to `end` of `text`, as `skip_comment` gave it.
template <class Reader>
CommentEnd finish_comment(const Reader& reader, const CommentScanner& comments, const Field& text,
                          std::size_t start, std::size_t end) {
    if (!comments.is_block) {
        return {end, 1, true};
    }
    const std::size_t lines = comments.count_comment_lines(text, start, end);
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
        : options_(options), reader_(reader), limits_(limits), text_(text), builder_(builder) {
        if (!options.comment_style.empty()) {
            comments_ = std::make_unique<CommentScanner>(options);
        }
    }

    /// Where a read fails, the array holds the lines before the one that failed.
    ReadCounts run() {
        try {
            read();
        } catch (...) {
            FieldArray& array = *builder_.field_array;
            array.fields.resize(array.line_ends.empty() ? 0 : array.line_ends.back());
            throw;
        }
        return counts_;
    }

private:
    enum class AfterComment : std::uint8_t { record, next_line, stop };

    void read() {
        std::optional<PlainRecords> plain;
        if (can_go_the_short_way()) {
            plain.emplace(line_shape(), limits_, text_, counts_, *builder_.field_array);
        }
        while (is_wanted()) {
            bool is_behind_comment = false;
            if (plain) {
                plain->resume();
                take_plain_records(reader_, *plain);
                plain->pause();
                if (!is_wanted()) {
                    break;
                }
                is_behind_comment = plain->is_behind_comment();
            }
            const AfterComment next = is_behind_comment ? AfterComment::record : pass_comment();
            if (next == AfterComment::stop) {
                break;
            }
            if (next == AfterComment::record) {
                take_record();
            }
        }
    }

    [[nodiscard]] bool is_wanted() const {
        return counts_.rows < limits_.rows && counts_.lines < limits_.lines &&
               text_.unit_at(0) != end_of_text;
    }

    /// Only where the builder does with a record what the short way does.
    [[nodiscard]] bool can_go_the_short_way() const {
        return reader_.field_limit == (builder_.limit_fields ? builder_.field_limit : SIZE_MAX) &&
               builder_.whitespace != nullptr && *builder_.whitespace == options_.whitespace &&
               reader_.has_plain_records;
    }

    [[nodiscard]] LineShape line_shape() const {
        return {reader_.blanks(),
                reader_.guarded_line_ends,
                comments_.get(),
                Reader::comment_keeps_columns,
                reader_.skipped_starts(),
                reader_.unplain_starts(),
                options_.empty_line_rule == empty_line::keep,
                Reader::blank_lines_are_empty};
    }

    /// Passes the comment that stands here, if any.
    AfterComment pass_comment() {
        if (!comments_) {
            return AfterComment::record;
        }
        const std::size_t start = content_start();
        const std::size_t end = comments_->skip_comment(text_, start);
        if (end <= start) {
            return AfterComment::record;
        }
        const CommentEnd comment = finish_comment(reader_, *comments_, text_, start, end);
        text_.advance(comment.resume_at);
        counts_.consumed += comment.resume_at;
        const bool too_many_lines = counts_.lines + comment.lines > limits_.lines;
        keep_lines_of(comment);
        if (comment.line_ended) {
            return AfterComment::next_line;
        }
        return too_many_lines ? AfterComment::stop : AfterComment::record;
    }

    /// Where content starts on the line at hand. Where blanks end lines, one run of them is many
    /// lines, all with the same content behind it, which is then looked for once.
    std::size_t content_start() {
        if (text_.data >= blanks_end_) {
            const std::size_t blanks = reader_.blanks().skip(text_, 0);
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
        for (std::size_t line = 0; line < taken_up; ++line) {
            builder_.field_array->add_empty_line();
        }
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
        return reader_.blanks().skip(Field(text_.data, end), 0) == end;
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
    const ReadLimits limits_;
    Field& text_;
    output::DetectionOutputBuilder& builder_;
    std::unique_ptr<const CommentScanner> comments_; ///< null if the text can hold none
    Record record_;
    ReadCounts counts_;
    const char16_t* blanks_end_ = nullptr; ///< of the blanks that were skipped last
    const char16_t* content_ = nullptr;    ///< the content behind them
};

} // namespace textio::parser
