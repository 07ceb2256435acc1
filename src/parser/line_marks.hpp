/// \file
/// Where lines and comments end, which is the same under every layout of a text.
#pragma once

#include "search/guarded_delim.hpp"
#include "search/long_string.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace textio::parser {

/// What is known after a comment.
struct CommentEnd {
    std::size_t resume_at; ///< where reading goes on, counted from where the comment's position is
    std::size_t lines;     ///< lines of the text that the comment takes up
    bool line_ended;       ///< nothing else is left on the line
};

/// The line endings and comments of a text, as its options describe them. For one thread at a time.
/// A detection reads its text under many layouts, all with the same marks.
class LineMarks {
public:
    explicit LineMarks(const options& options);
    LineMarks(const LineMarks&) = delete;
    LineMarks& operator=(const LineMarks&) = delete;

    /// `marks` if there are any and they are those of `options`, otherwise new ones.
    static std::shared_ptr<const LineMarks> of(const options& options,
                                               std::shared_ptr<const LineMarks> marks);

    [[nodiscard]] const GuardedDelim& line_ends() const noexcept { return line_ends_; }

    /// Finds the units with which line endings start.
    [[nodiscard]] const UnitSearch& line_end_starts() const noexcept { return line_end_starts_; }

    /// The first line ending of `text` from `from` on.
    [[nodiscard]] Boundary find_line_end(const Field& text, std::size_t from) const noexcept {
        return find_boundary(line_end_starts_, line_ends_, nullptr, text, from);
    }

    /// With what comments start; empty if the text can hold none.
    [[nodiscard]] const std::u16string& opener() const noexcept { return opener_; }

    /// Whether comments are closed by a string of their own.
    [[nodiscard]] bool has_block_comments() const noexcept { return has_block_comments_; }

    /// The position behind the comment that starts at `position`, or `position` if none does. A
    /// comment that is never closed runs to the end of the text.
    [[nodiscard]] std::size_t skip_comment(const Field& text, std::size_t position) const noexcept;

    /// The lines that the comment from `start` to `end`, as `skip_comment` gave it, takes up. The
    /// line on which a block comment closes counts whatever follows it.
    [[nodiscard]] std::size_t count_comment_lines(const Field& text, std::size_t start,
                                                  std::size_t end) const noexcept;

    /// To be called before another text is asked.
    void forget_text() const noexcept;

private:
    std::vector<std::u16string> line_endings_;
    GuardedDelim line_ends_;
    UnitSearch line_end_starts_;
    bool has_block_comments_;
    std::u16string opener_;
    std::u16string closer_; ///< of block comments
    mutable LongString long_opener_;
    GuardedDelim guarded_closer_;
    UnitSearch closer_starts_;
};

} // namespace textio::parser
