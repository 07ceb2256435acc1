#include "parser/plain_comments.hpp"

#include <algorithm>

namespace textio::parser {

namespace {

/// The string that closes a block comment. Empty if comments end with their lines.
std::u16string closer_of(const CommentScanner& comments) {
    return comments.closer_size == 0 ? std::u16string() : comments.to_closer.ends->strings.front();
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

PlainComments::PlainComments(const CommentScanner& comments, const GuardedDelim& line_ends,
                             const char16_t* begin, const char16_t* end)
    : comments_(comments), line_ends_(line_ends), usual_line_end_(line_ends.usual_unit()),
      closer_(closer_of(comments)),
      stops_(line_ends.first_units().units() + closer_.substr(0, 1) + end_of_text),
      walk_(stops_, begin, end), end_(end) {}

const char16_t* PlainComments::pass(const char16_t* line, const char16_t* start,
                                    std::size_t& lines) noexcept {
    if (!stands_at(comments_.opener, start)) {
        return nullptr;
    }
    lines = 1;
    const char16_t* stop = walk_.next(start + comments_.opener_size);
    while (stop != end_ && *stop != end_of_text) {
        if (are_blocks() && stands_at(closer_, stop)) {
            return stop + closer_.size();
        }
        const std::size_t line_end = line_ending_at(stop);
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

/// Markers are a few units long: a loop over them beats a call.
bool PlainComments::stands_at(const std::u16string& marker, const char16_t* at) const noexcept {
    if (*at != marker.front() || static_cast<std::size_t>(end_ - at) < marker.size()) {
        return false;
    }
    for (std::size_t i = 1; i < marker.size(); ++i) {
        if (at[i] != marker[i]) {
            return false;
        }
    }
    return true;
}

std::size_t PlainComments::line_ending_at(const char16_t* at) const noexcept {
    return *at == usual_line_end_ ? 1 : line_ends_.match_at(Field(rest_from(at)), 0);
}

} // namespace textio::parser
