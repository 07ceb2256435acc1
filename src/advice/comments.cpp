#include "advice/comments.hpp"

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
    if (!is_comment(line, opener)) {
        return false;
    }
    const std::u16string_view rest = line.substr(opener.size());
    const bool is_option = opener == u"--" && !rest.starts_with(u' ');
    return !is_option &&
           (plain_openers.find(opener) != std::u16string_view::npos || has_letter(rest));
}

struct OpenerCount {
    std::size_t lines = 0;
    bool has_first_line = false;
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

    /// Whether an opener may begin with the unit; never wrong with a no.
    [[nodiscard]] bool may_have(char16_t unit) const { return begins_[unit % begins_.size()]; }

private:
    std::array<bool, 128> begins_{};
};

/// A line without the blanks in front.
std::u16string_view from_first_unit(std::u16string_view line) {
    while (!line.empty() && is_blank(line.front())) {
        line.remove_prefix(1);
    }
    return line;
}

/// How many lines each opener begins, in their order.
std::vector<OpenerCount> count_lines(const FieldArray& lines,
                                     std::span<const std::u16string> openers) {
    const FirstUnits first_units(openers);
    std::vector<OpenerCount> counts(openers.size());
    for (std::size_t field = 0; field < lines.fields.size(); ++field) {
        const std::u16string_view line = from_first_unit(lines.fields[field].view());
        if (line.empty() || !first_units.may_have(line.front())) {
            continue;
        }
        for (std::size_t index = 0; index < openers.size(); ++index) {
            if (begins_comment(line, openers[index])) {
                ++counts[index].lines;
                counts[index].has_first_line = counts[index].has_first_line || field == 0;
            }
        }
    }
    return counts;
}

/// Whether an opener begins with a delimiter that separates the fields of the lines: it stands in
/// most of the others, and most of those that it begins have it once more or a value right behind
/// it. Such lines are rows whose first field is empty.
bool is_delimiter_of_rows(const FieldArray& lines, std::u16string_view opener) {
    const char16_t sign = opener.front();
    if (common_delimiters_of_files.find(sign) == std::u16string_view::npos) {
        return false;
    }
    std::size_t opened = 0;
    std::size_t rows = 0;
    std::size_t others_with = 0;
    for (const Field& field : lines.fields) {
        const std::u16string_view line = from_first_unit(field.view());
        const bool opens = line.starts_with(opener);
        const std::u16string_view rest = line.substr(opens ? opener.size() : 0);
        const bool has_sign = rest.find(sign) != std::u16string_view::npos;
        const bool is_row = has_sign || rest.empty() || !is_blank(rest.front());
        opened += opens ? 1U : 0U;
        rows += opens && is_row ? 1U : 0U;
        others_with += !opens && has_sign ? 1U : 0U;
    }
    return rows * 2 > opened && others_with * 2 > lines.fields.size() - opened;
}

/// Tells lines of comments from others, one after the other.
class CommentLines {
public:
    explicit CommentLines(std::span<const std::u16string> style) : style_(style) {}

    bool takes(std::u16string_view line) {
        const bool opens = !is_inside_ && is_comment(line, style_.front());
        if (!opens && !is_inside_) {
            return false;
        }
        if (style_.size() == 2) {
            const std::size_t behind =
                opens ? line.find(style_.front()) + style_.front().size() : 0;
            is_inside_ = line.find(style_.back(), behind) == std::u16string_view::npos;
        }
        return true;
    }

private:
    std::span<const std::u16string> style_;
    bool is_inside_ = false;
};

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
        const std::size_t end = text.find(block_closer);
        is_inside = end == std::u16string_view::npos;
        if (!is_inside && end + block_closer.size() != text.size()) {
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
    const std::size_t filled = lines.fields.size();
    std::u16string_view best;
    std::size_t most = 0;
    const std::vector<OpenerCount> counts = count_lines(lines, openers);
    for (std::size_t index = 0; index < openers.size(); ++index) {
        const std::u16string_view opener = openers[index];
        const OpenerCount count = counts[index];
        const bool is_usual = opener == usual_opener;
        const bool is_like_comments = is_usual || count.has_first_line || count.lines >= 2;
        const bool leaves_rows = is_usual ? count.lines < filled : count.lines * 4 <= filled * 3;
        if (count.lines > most && is_like_comments && leaves_rows &&
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
    CommentLines comments(style);
    bool are_all_above = true;
    bool has_any = false;
    for (std::size_t line = 0; line < lines.line_count(); ++line) {
        const std::u16string_view text = text_of(lines, line);
        if (text.empty()) {
            continue;
        }
        const bool comment = comments.takes(text);
        if (line >= first_data_line && comment) {
            return true;
        }
        has_any = has_any || comment;
        are_all_above = are_all_above && (comment || line >= std::min(names_line, first_data_line));
    }
    return has_any && are_all_above;
}

} // namespace textio::advice
