/// \file
/// The one loop that walks through a text, record by record, and hands the records on.
///
/// It runs with any of the three readers. A reader supplies, as free functions and members:
/// - `read_record(reader, text, record)`: reads the record at the start of `text`, and gives
/// whether
///   the record counts as a row even when it is blank;
/// - `skip_to_content(reader, text, from)`: where content starts on the line at `from`;
/// - `comment_keeps_columns`: whether text behind a block comment is read with the blanks in front;
/// - `blanks()`, `line_ends` and `remember_blocks(bool)`.
#pragma once

#include "parser/comment_scanner.hpp"
#include "parser/parser_exception.hpp"
#include "parser/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace textio::parser {

/// How far a loop came.
struct ReadCounts {
    std::size_t consumed = 0; ///< code units passed
    std::size_t lines = 0;    ///< lines of the text passed
    std::size_t rows = 0;     ///< lines that counted as rows
};

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
    if (const std::size_t length = reader.line_ends->match_at(text, content); length != 0) {
        return {content + length, lines, true};
    }
    return {Reader::comment_keeps_columns ? end : content, lines, false};
}

/// The state of one run of the loop.
template <class Reader>
class RecordLoop {
public:
    RecordLoop(const options& options, const Reader& reader, Field& text,
               output::DetectionOutputBuilder& builder)
        : options_(options), reader_(reader), text_(text), builder_(builder) {
        if (!options.comment_style.empty()) {
            comments_.emplace(options);
        }
        reader_.remember_blocks(true);
    }

    RecordLoop(const RecordLoop&) = delete;
    RecordLoop& operator=(const RecordLoop&) = delete;
    ~RecordLoop() { reader_.remember_blocks(false); }

    ReadCounts run(std::size_t max_rows, std::size_t max_lines) {
        max_rows_ = max_rows;
        while (counts_.rows < max_rows && counts_.lines < max_lines &&
               text_.unit_at(0) != end_of_text) {
            record_.spans.clear();
            record_.consumed = 0;
            const AfterComment next = comments_ ? pass_comment(max_lines) : AfterComment::record;
            if (next == AfterComment::stop) {
                break;
            }
            if (next == AfterComment::record) {
                take_record();
            }
        }
        return counts_;
    }

private:
    static constexpr std::size_t first_fields = 64; ///< room at the start, in fields
    static constexpr double expected_margin = 1.05; ///< lines are not all alike
    static constexpr double most_growth = 16.0;     ///< the start of a text can mislead

    enum class AfterComment { record, next_line, stop };

    AfterComment pass_comment(std::size_t max_lines) {
        const std::size_t start = skip_to_content(reader_, text_, 0);
        const std::size_t end = comments_->skip_comment(text_, start);
        if (end <= start) {
            return AfterComment::record;
        }
        const CommentEnd comment = finish_comment(reader_, *comments_, text_, start, end);
        text_.advance(comment.resume_at);
        counts_.consumed += comment.resume_at;
        const bool too_many_lines = counts_.lines + comment.lines > max_lines;
        keep_lines_of(comment);
        if (comment.line_ended) {
            return AfterComment::next_line;
        }
        return too_many_lines ? AfterComment::stop : AfterComment::record;
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
        const bool counts_when_blank = read_marked_record();
        if (counts_when_blank || !is_blank()) {
            make_room();
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

    /// Where the record does not fit into the array any more, makes room for as many fields as the
    /// whole text would give if it went on as it began, so that a long sample is moved once or
    /// twice and not at every doubling.
    void make_room() {
        std::vector<Field>& fields = builder_.field_array->fields;
        const std::size_t needed = fields.size() + record_.spans.size() / 2;
        if (needed <= fields.capacity()) {
            return;
        }
        const auto consumed = static_cast<double>(counts_.consumed + record_.consumed);
        const double growth = std::min(
            {static_cast<double>(text_.size + counts_.consumed) / consumed * expected_margin,
             static_cast<double>(max_rows_) / static_cast<double>(counts_.rows + 1) *
                 expected_margin,
             most_growth});
        fields.reserve(std::max({needed + needed / 2, first_fields,
                                 static_cast<std::size_t>(static_cast<double>(needed) * growth)}));
    }

    [[nodiscard]] bool is_blank() const {
        if (record_.spans.empty()) {
            return true;
        }
        const std::size_t end = record_.spans.back();
        return skip_units(reader_.blanks(), Field(text_.data, end), 0) == end;
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
    Field& text_;
    output::DetectionOutputBuilder& builder_;
    std::optional<CommentScanner> comments_;
    Record record_;
    ReadCounts counts_;
    std::size_t max_rows_ = 0;
};

} // namespace textio::parser
