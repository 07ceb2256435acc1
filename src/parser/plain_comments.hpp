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
#include <utility>

namespace textio::parser {

/// A string that opens or closes comments. Most have one unit or two, and these are compared
/// without a call.
class Marker {
public:
    explicit Marker(std::u16string units)
        : first_(units.empty() ? no_unit : units[0]), second_(units.size() < 2 ? u'\0' : units[1]),
          units_(std::move(units)) {}

    [[nodiscard]] std::size_t size() const noexcept { return units_.size(); }

    /// Whether the string, if it is not empty, stands at `at`, in front of `end`.
    [[nodiscard]] bool stands_at(const char16_t* at, const char16_t* end) const noexcept {
        return *at == first_ &&
               (size() == 1 || (static_cast<std::size_t>(end - at) >= size() && at[1] == second_ &&
                                (size() == 2 || rest_stands_at(at))));
    }

private:
    [[nodiscard]] bool rest_stands_at(const char16_t* at) const noexcept;

    char32_t first_;
    char16_t second_;
    std::u16string units_;
};

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
    const char16_t* pass_on(const char16_t* line, const char16_t* start, const char16_t* stop,
                            std::size_t& lines) noexcept;
    [[nodiscard]] std::u16string_view rest_from(const char16_t* at) const noexcept {
        return {at, static_cast<std::size_t>(end_ - at)};
    }

    const CommentScanner& comments_;
    const GuardedDelim& line_ends_;
    const char32_t inner_line_end_; ///< the usual line ending, if comments go on behind it
    const Marker opener_;
    const Marker closer_;    ///< what closes a block, or usually ends the line of any other comment
    const UnitSearch stops_; ///< finds all that may end a comment or a line
    SearchWalk walk_;
    const char16_t* const end_;
};

inline const char16_t* PlainComments::pass(const char16_t* line, const char16_t* start,
                                           std::size_t& lines) noexcept {
    if (!opener_.stands_at(start, end_)) {
        return nullptr;
    }
    lines = 1;
    const char16_t* stop = walk_.next(start + opener_.size());
    while (stop != end_ && *stop == inner_line_end_) {
        ++lines;
        stop = walk_.next();
    }
    const bool is_closed = stop != end_ && closer_.stands_at(stop, end_);
    return is_closed ? stop + closer_.size() : pass_on(line, start, stop, lines);
}

} // namespace textio::parser
