/// \file
/// Where a comment ends, and how many lines it takes up.
#pragma once

#include "search/boundary_scanner.hpp"
#include "search/long_string.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <string>

namespace textio::parser {

/// What is known after a comment.
struct CommentEnd {
    std::size_t resume_at; ///< where reading goes on, counted from where the comment's position is
    std::size_t lines;     ///< lines of the text that the comment takes up
    bool line_ended;       ///< nothing else is left on the line
};

/// The comments of a text, as its options describe them. Built once for each read, and for one
/// thread at a time.
struct CommentScanner {
    explicit CommentScanner(const options& options);

    /// The position behind the comment that starts at `position`, or `position` if none does. A
    /// comment that is never closed runs to the end of the text.
    [[nodiscard]] std::size_t skip_comment(const Field& text, std::size_t position) const noexcept;

    /// The lines that the comment from `start` to `end`, as `skip_comment` gave it, takes up. The
    /// line on which a block comment closes counts whatever follows it.
    [[nodiscard]] std::size_t count_comment_lines(const Field& text, std::size_t start,
                                                  std::size_t end) const noexcept;

    std::u16string opener;       ///< empty if the text has no comments
    BoundaryScanner to_closer;   ///< the closer of a block comment, otherwise the line endings
    BoundaryScanner to_line_end; ///< the line endings
    bool has_opener;
    bool is_block; ///< comments are closed by a string of their own
    std::size_t opener_size;
    std::size_t closer_size;        ///< 0 unless `is_block`
    mutable LongString long_opener; ///< `opener`, as it is compared
};

} // namespace textio::parser
