#include "parser/plain_comments.hpp"

#include <algorithm>

namespace textio::parser {

namespace {

/// The string that closes a block comment. Empty if comments end with their lines.
std::u16string closer_of(const CommentScanner& comments) {
    return comments.closer_size == 0 ? std::u16string() : comments.to_closer.ends->strings.front();
}

/// The one unit that usually ends a line, or nothing.
std::u16string usual_line_end(const GuardedDelim& line_ends) {
    const char32_t unit = line_ends.usual_unit();
    return unit == no_unit ? std::u16string() : std::u16string(1, static_cast<char16_t>(unit));
}

} // namespace

bool can_have_plain_comments(const CommentScanner& comments) {
    std::u16string line_end_units;
    for (const std::u16string& line_end : comments.to_line_end.ends->strings) {
        line_end_units += line_end;
    }
    return comments.has_opener && comments.opener.front() != end_of_text &&
           comments.is_block == (comments.closer_size != 0) &&
           are_disjoint(
               {closer_of(comments), line_end_units, std::u16string_view(&end_of_text, 1)});
}

bool Marker::rest_stands_at(const char16_t* at) const noexcept {
    return std::equal(units_.begin() + 2, units_.end(), at + 2);
}

PlainComments::PlainComments(const CommentScanner& comments, const GuardedDelim& line_ends,
                             const char16_t* begin, const char16_t* end)
    : comments_(comments), line_ends_(line_ends),
      inner_line_end_(are_blocks() ? line_ends.usual_unit() : no_unit), opener_(comments.opener),
      closer_(are_blocks() ? closer_of(comments) : usual_line_end(line_ends)),
      stops_(line_ends.first_units().units() + closer_of(comments).substr(0, 1) + end_of_text),
      walk_(stops_, begin, end), end_(end) {}

/// The rest of `pass`, from `stop` on, where no usual end of the comment stands.
const char16_t* PlainComments::pass_on(const char16_t* line, const char16_t* start,
                                       const char16_t* stop, std::size_t& lines) noexcept {
    while (stop != end_ && *stop != end_of_text) {
        if (closer_.stands_at(stop, end_)) {
            return stop + closer_.size();
        }
        const std::size_t line_end = line_ends_.match_at(Field(rest_from(stop)), 0);
        if (line_end != 0 && !are_blocks()) {
            return stop + line_end;
        }
        lines += line_end == 0 ? 0 : 1;
        stop = line_end > 1 ? walk_.next(stop + line_end) : walk_.next();
    }
    if (stop != end_) {
        return nullptr;
    }
    const Field text(rest_from(line));
    lines = comments_.count_comment_lines(text, static_cast<std::size_t>(start - line), text.size);
    return end_;
}

} // namespace textio::parser
