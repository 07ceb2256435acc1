#include "advice/comments.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/survey.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace textio::advice {

namespace {

/// These open comments whatever follows. Lines that begin with another opener are rulers or data
/// unless words follow.
constexpr std::u16string_view plain_openers = u"#%!";

/// The one whose every comment counts: others come in the first line, or more than once.
constexpr std::u16string_view usual_opener = u"#";

bool begins_comment(std::u16string_view line, std::u16string_view opener) {
    if (opener.empty() || !line.starts_with(opener)) {
        return false;
    }
    const std::u16string_view rest = line.substr(opener.size());
    const bool is_option = opener == u"--" && !rest.starts_with(u' ');
    return !is_option && (holds(plain_openers, opener) || has_letter(rest));
}

struct OpenerCount {
    std::size_t lines = 0;
    bool has_first_line = false;

    void add(bool is_first_line) {
        ++lines;
        has_first_line |= is_first_line;
    }
};

/// The units with which openers begin. Most lines begin with none of them.
class FirstUnits {
public:
    explicit FirstUnits(std::span<const std::u16string> openers) {
        for (const std::u16string& opener : openers) {
            if (!opener.empty()) {
                begins_[opener.front() % begins_.size()] = true;
            }
        }
    }

    /// Whether an opener may begin a line; never wrong with a no.
    [[nodiscard]] bool may_begin(std::u16string_view line) const {
        return !line.empty() && begins_[line.front() % begins_.size()];
    }

private:
    std::array<bool, 128> begins_{};
};

/// How many lines each opener begins, in their order.
std::vector<OpenerCount> count_lines(const FieldArray& lines,
                                     std::span<const std::u16string> openers) {
    const FirstUnits first_units(openers);
    std::vector<OpenerCount> counts(openers.size());
    for (std::size_t field = 0; field < lines.fields.size(); ++field) {
        const std::u16string_view line = trimmed(lines.fields[field].view());
        if (!first_units.may_begin(line)) {
            continue;
        }
        for (std::size_t index = 0; index < openers.size(); ++index) {
            if (begins_comment(line, openers[index])) {
                counts[index].add(field == 0);
            }
        }
    }
    return counts;
}

/// Whether what stands behind an empty first field has a delimiter once more, or right away a
/// value, or is nothing.
bool is_row_behind(std::u16string_view rest, char16_t delimiter) {
    return rest.empty() || !is_blank(rest.front()) || holds(rest, delimiter);
}

/// Whether an opener begins with a delimiter that separates the fields of the lines: it stands in
/// most of the others, and most of those that it begins have it once more or a value right behind
/// it. Such lines are rows whose first field is empty.
bool is_delimiter_of_rows(const FieldArray& lines, std::u16string_view opener) {
    const char16_t sign = opener.front();
    if (!holds(common_delimiters_of_files, sign)) {
        return false;
    }
    std::size_t opened = 0;
    std::size_t rows = 0;
    std::size_t others_with = 0;
    for (const Field& field : lines.fields) {
        const std::u16string_view line = from_first_unit(field.view());
        if (line.starts_with(opener)) {
            ++opened;
            rows += one_if(is_row_behind(line.substr(opener.size()), sign));
        } else {
            others_with += one_if(holds(line, sign));
        }
    }
    return rows * 2 > opened && others_with * 2 > lines.fields.size() - opened;
}

/// Tells lines of comments from others, one after the other.
class CommentLines {
public:
    explicit CommentLines(std::span<const std::u16string> style) : style_(style) {}

    bool takes(std::u16string_view line) {
        if (is_inside_) {
            is_inside_ = !holds(line, style_.back());
            return true;
        }
        if (!is_comment(line, style_.front())) {
            return false;
        }
        is_inside_ = style_.size() == 2 && !is_closed_behind_opener(line);
        return true;
    }

private:
    [[nodiscard]] bool is_closed_behind_opener(std::u16string_view line) const {
        const std::u16string_view opener = style_.front();
        return holds(line.substr(line.find(opener) + opener.size()), style_.back());
    }

    std::span<const std::u16string> style_;
    bool is_inside_ = false;
};

/// Whether the lines that an opener begins are like comments: enough of them, and not too many.
bool opens_comments(std::u16string_view opener, const OpenerCount& count, std::size_t lines) {
    if (opener == usual_opener) {
        return count.lines < lines;
    }
    return (count.has_first_line || count.lines >= 2) && count.lines * 4 <= lines * 3;
}

} // namespace

bool has_block_comments(const FieldArray& lines) {
    bool is_inside = false;
    std::size_t in_blocks = 0;
    for (const Field& field : lines.fields) {
        std::u16string_view text = from_first_unit(field.view());
        if (!is_inside && !text.starts_with(block_opener)) {
            continue;
        }
        text = trimmed(text.substr(is_inside ? 0 : block_opener.size()));
        ++in_blocks;
        is_inside = !holds(text, block_closer);
        if (!is_inside && text.find(block_closer) + block_closer.size() != text.size()) {
            return false;
        }
    }
    return !is_inside && in_blocks != 0 && in_blocks < lines.fields.size();
}

bool is_comment(std::u16string_view line, std::u16string_view opener) noexcept {
    return !opener.empty() && trimmed(line).starts_with(opener);
}

std::u16string_view choose_comment_opener(const FieldArray& lines,
                                          std::span<const std::u16string> openers) {
    std::u16string_view best;
    std::size_t most = 0;
    const std::vector<OpenerCount> counts = count_lines(lines, openers);
    for (std::size_t index = 0; index < openers.size(); ++index) {
        const std::u16string_view opener = openers[index];
        const OpenerCount count = counts[index];
        if (count.lines > most && opens_comments(opener, count, lines.fields.size()) &&
            !is_delimiter_of_rows(lines, opener)) {
            most = count.lines;
            best = opener;
        }
    }
    return best;
}

bool are_comments(const FieldArray& lines, std::span<const std::u16string> style,
                  std::size_t names_line, std::size_t first_data_line) {
    if (style.empty()) {
        return false;
    }
    const std::size_t table = std::min(names_line, first_data_line);
    CommentLines comments(style);
    std::size_t commented = 0;
    std::size_t within = 0;
    std::size_t others_above = 0;
    for_each_filled_line(lines, 0, lines.line_count(),
                         [&](std::size_t line, std::u16string_view text) {
                             if (comments.takes(text)) {
                                 ++commented;
                                 within += one_if(line >= first_data_line);
                             } else {
                                 others_above += one_if(line < table);
                             }
                         });
    return within != 0 || (commented != 0 && others_above == 0);
}

} // namespace textio::advice
