#include "parser/comment_scanner.hpp"

#include <vector>

namespace textio::parser {

namespace {

bool names_a_closer(const std::vector<std::u16string>& comment_style) {
    return comment_style.size() == 2;
}

std::vector<std::u16string> closers(const options& options) {
    if (names_a_closer(options.comment_style)) {
        return {options.comment_style[1]};
    }
    return options.line_endings;
}

} // namespace

CommentScanner::CommentScanner(const options& options)
    : opener(options.comment_style.empty() ? std::u16string() : options.comment_style.front()),
      to_closer(closers(options), {}), to_line_end(options.line_endings, {}),
      has_opener(!opener.empty()), is_block(names_a_closer(options.comment_style)),
      opener_size(opener.size()), closer_size(is_block ? options.comment_style[1].size() : 0),
      long_opener(opener) {}

std::size_t CommentScanner::skip_comment(const Field& text, std::size_t position) const noexcept {
    if (!has_opener || position >= text.size ||
        !long_opener.stands_at(text.data + position, text.data + text.size)) {
        return position;
    }
    const std::size_t body = position + opener_size;
    if (body >= text.size) {
        return body;
    }
    const Boundary closer = to_closer.find(text, body);
    return closer.at + closer.length;
}

std::size_t CommentScanner::count_comment_lines(const Field& text, std::size_t start,
                                                std::size_t end) const noexcept {
    if (!is_block) {
        return 1;
    }
    const std::size_t limit = end - closer_size;
    std::size_t at = start + opener_size;
    std::size_t lines = 0;
    while (at <= limit && text.unit_at(at) != end_of_text) {
        const Boundary line_end = to_line_end.find(text, at);
        at = line_end.at + line_end.length;
        ++lines;
    }
    return lines;
}

} // namespace textio::parser
