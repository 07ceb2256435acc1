#include "parser/line_marks.hpp"

#include <utility>

namespace textio::parser {

namespace {

std::u16string opener_of(const options& options) {
    return options.comment_style.empty() ? std::u16string() : options.comment_style.front();
}

bool names_a_closer(const options& options) {
    return options.comment_style.size() == 2;
}

std::u16string closer_of(const options& options) {
    return names_a_closer(options) ? options.comment_style.back() : std::u16string();
}

GuardedDelim guarded(const std::u16string& string) {
    return string.empty() ? GuardedDelim() : GuardedDelim({string});
}

} // namespace

LineMarks::LineMarks(const options& options)
    : line_endings_(options.line_endings), line_ends_(line_endings_),
      line_end_starts_(line_ends_.first_units().units()),
      has_block_comments_(names_a_closer(options)), opener_(opener_of(options)),
      closer_(closer_of(options)), long_opener_(opener_), guarded_closer_(guarded(closer_)),
      closer_starts_(guarded_closer_.first_units().units()) {}

std::shared_ptr<const LineMarks> LineMarks::of(const options& options,
                                               std::shared_ptr<const LineMarks> marks) {
    const bool fit = marks != nullptr && marks->line_endings_ == options.line_endings &&
                     marks->has_block_comments_ == names_a_closer(options) &&
                     marks->opener_ == opener_of(options) && marks->closer_ == closer_of(options);
    return fit ? std::move(marks) : std::make_shared<const LineMarks>(options);
}

std::size_t LineMarks::skip_comment(const Field& text, std::size_t position) const noexcept {
    if (opener_.empty() || position >= text.size ||
        !long_opener_.stands_at(text.data + position, text.data + text.size)) {
        return position;
    }
    const std::size_t body = position + opener_.size();
    if (body >= text.size) {
        return body;
    }
    const Boundary closer =
        has_block_comments() ? find_boundary(closer_starts_, guarded_closer_, nullptr, text, body)
                             : find_line_end(text, body);
    return closer.at + closer.length;
}

std::size_t LineMarks::count_comment_lines(const Field& text, std::size_t start,
                                           std::size_t end) const noexcept {
    if (!has_block_comments()) {
        return 1;
    }
    const std::size_t limit = end - closer_.size();
    std::size_t at = start + opener_.size();
    std::size_t lines = 0;
    while (at <= limit && text.unit_at(at) != end_of_text) {
        const Boundary line_end = find_line_end(text, at);
        at = line_end.at + line_end.length;
        ++lines;
    }
    return lines;
}

void LineMarks::forget_text() const noexcept {
    line_ends_.forget_text();
    guarded_closer_.forget_text();
    long_opener_.forget_text();
}

} // namespace textio::parser
