/// \file
/// The short way over comments.
#pragma once

#include "parser/comment_scanner.hpp"
#include "parser/guarded_delim.hpp"
#include "parser/search_walk.hpp"
#include "parser/unit_search.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace textio::parser {

/// Whether there are comments, and one look at a unit tells what it is to them: none starts with
/// the end of text, and no unit of a closer is that or part of a line ending.
[[nodiscard]] bool can_have_plain_comments(const CommentScanner& comments);

/// Passes comments from left to right, in one search for both their ends and the line endings in
/// them.
class PlainComments {
public:
    /// For comments from `begin` up to `end`. What is given outlives it.
    PlainComments(const CommentScanner& comments, const GuardedDelim& line_ends,
                  const char16_t* begin, const char16_t* end);
    PlainComments(const PlainComments&) = delete;
    PlainComments& operator=(const PlainComments&) = delete;
    ~PlainComments() = default;

    /// Whether text may follow a comment on its line.
    [[nodiscard]] bool are_blocks() const noexcept { return comments_.is_block; }

    /// The place behind the comment that starts at `start`, behind the blanks at `line` and behind
    /// all comments passed before. Null if none starts there, or if the end of text stands in it.
    /// `lines` becomes what `count_comment_lines` gives for a text that starts at `line`.
    const char16_t* pass(const char16_t* line, const char16_t* start, std::size_t& lines) noexcept;

private:
    [[nodiscard]] std::u16string_view rest_from(const char16_t* at) const noexcept {
        return {at, static_cast<std::size_t>(end_ - at)};
    }
    [[nodiscard]] std::size_t line_ending_at(const char16_t* at) const noexcept;
    /// Whether `marker`, which is not empty, stands at `at`, where no text ends.
    [[nodiscard]] bool stands_at(const std::u16string& marker, const char16_t* at) const noexcept;

    const CommentScanner& comments_;
    const GuardedDelim& line_ends_;
    const char32_t usual_line_end_;
    const std::u16string closer_; ///< empty unless `are_blocks()`
    const UnitSearch stops_;      ///< finds all that may end a comment or a line
    SearchWalk walk_;
    const char16_t* const end_;
};

} // namespace textio::parser
