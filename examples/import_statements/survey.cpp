#include "survey.hpp"

#include <algorithm>

namespace import_statements {

namespace {

constexpr std::u16string_view line_ends = u"\r\n";

/// The place behind the line that begins at `place`.
std::size_t next_line(std::u16string_view text, std::size_t place) {
    const std::size_t end = std::min(text.find_first_of(line_ends, place), text.size());
    return std::min(end + (text.substr(end).starts_with(line_ends) ? 2 : 1), text.size());
}

} // namespace

Survey::Survey(Table& table, const textio::parser::options& options, std::u16string_view text)
    : troubles_(table.troubles), columns_(table.columns.size()),
      is_aligned_(table.kind == Kind::aligned), has_positions_(table.kind == Kind::fixed_width),
      options_(options), text_(text) {
    if (!options.comment_style.empty()) {
        opener_ = options.comment_style.front();
    }
    for (const char16_t unit : text) {
        troubles_.beyond_ascii = troubles_.beyond_ascii || unit > 0x7F;
        troubles_.surrogates = troubles_.surrogates || (unit >= 0xD800 && unit < 0xE000);
    }
    look_at_lines_above(table);
}

void Survey::look_at_lines_above(Table& table) {
    for (std::size_t line = 0; line < table.skipped_lines && place_ < text_.size(); ++line) {
        const std::size_t next = next_line(text_, place_);
        const auto skipped = text_.substr(place_, next - place_);
        const auto quotes = std::count(skipped.begin(), skipped.end(), options_.quote);
        troubles_.skipped_quotes = troubles_.skipped_quotes || quotes % 2 != 0;
        look_at_ends(skipped);
        if (!opener_.empty() && skipped.starts_with(opener_)) {
            ++table.skipped_comments;
        }
        place_ = next;
    }
}

void Survey::add(std::span<const textio::Field> fields) {
    if (fields.empty() || fields.front().data == nullptr || fields.back().data == nullptr) {
        return;
    }
    const auto begin = static_cast<std::size_t>(fields.front().data - text_.data());
    look_between(text_.substr(place_, begin - std::min(begin, place_)));
    for (const textio::Field& field : fields) {
        look_at_cell(field.view());
    }
    troubles_.short_rows = troubles_.short_rows || (fields.size() < columns_ && !has_positions_);
    place_ = static_cast<std::size_t>(fields.back().data - text_.data()) + fields.back().size;
    at_line_start_ = false;
}

void Survey::look_at_ends(std::u16string_view text) {
    for (std::size_t at = text.find_first_of(line_ends); at < text.size();
         at = text.find_first_of(line_ends, at)) {
        const bool is_pair = text.substr(at).starts_with(line_ends);
        troubles_.lone_returns = troubles_.lone_returns || (!is_pair && text[at] == u'\r');
        has_pairs_ = has_pairs_ || is_pair;
        has_lone_feeds_ = has_lone_feeds_ || (!is_pair && text[at] == u'\n');
        at += is_pair ? 2 : 1;
    }
    troubles_.mixed_endings = has_pairs_ && has_lone_feeds_;
}

/// `gap` is from the end of a row, line ending included, to the first cell of the next.
void Survey::look_between(std::u16string_view gap) {
    look_at_ends(gap);
    for (std::size_t at = at_line_start_ ? 0 : next_line(gap, 0); at < gap.size();) {
        const std::size_t next = next_line(gap, at);
        const auto line = gap.substr(at, next - at);
        const std::size_t text = line.find_first_not_of(u" \t");
        const bool is_blank = text == std::u16string_view::npos
                                  ? next < gap.size()
                                  : line_ends.find(line[text]) != std::u16string_view::npos;
        troubles_.blank_lines = troubles_.blank_lines || is_blank;
        if (!opener_.empty() && text != std::u16string_view::npos && !is_blank) {
            troubles_.comments = true;
            troubles_.indented_comments = troubles_.indented_comments || text != 0;
        }
        at = next;
    }
}

void Survey::look_at_cell(std::u16string_view cell) {
    const std::u16string_view blanks = options_.whitespace;
    const std::size_t first = cell.find_first_not_of(blanks);
    if (!is_aligned_ && !has_positions_ && !cell.empty()) {
        troubles_.padded_cells = troubles_.padded_cells || first != 0 ||
                                 cell.find_last_not_of(blanks) + 1 != cell.size();
    }
    if (first == std::u16string_view::npos) {
        return;
    }
    if (!opener_.empty() && cell.find(opener_) != std::u16string_view::npos) {
        troubles_.comment_signs = true;
    }
    if (options_.quote == 0) {
        return;
    }
    cell = cell.substr(first, cell.find_last_not_of(blanks) + 1 - first);
    if (cell.front() == options_.quote) {
        look_at_quoted(cell);
    } else if (cell.find(options_.quote) != std::u16string_view::npos) {
        troubles_.stray_quotes = true;
    }
}

void Survey::look_at_quoted(std::u16string_view cell) {
    troubles_.quoted_cells = true;
    troubles_.line_breaks =
        troubles_.line_breaks || cell.find_first_of(line_ends) != std::u16string_view::npos;
    std::size_t at = 1;
    while (at < cell.size() && (at = cell.find(options_.quote, at)) < cell.size()) {
        if (cell.substr(at + 1).starts_with(options_.quote)) {
            troubles_.doubled_quotes = true;
            at += 2;
        } else {
            // What follows a closing quote is told apart in as many ways as there are tools.
            troubles_.stray_quotes = troubles_.stray_quotes || at + 1 != cell.size();
            return;
        }
    }
    troubles_.stray_quotes = true; // it is never closed
}

} // namespace import_statements
