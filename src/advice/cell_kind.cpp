#include "advice/cell_kind.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/number_shape.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace textio::advice {

namespace {

/// Signs that mostly separate fields; a comma does unless a blank follows.
constexpr std::u16string_view separators = u";|\t";

constexpr std::u16string_view punctuation = u",;|\t:";

/// So many blanks in a row are a gap.
constexpr std::u16string_view gap = u"   ";

constexpr std::size_t longest_look = 200; ///< units of a text; what begins like this goes on so

bool is_quote(char16_t unit, char16_t quote) {
    return unit == quote && quote != 0;
}

bool is_tight_comma(char16_t unit, char16_t next) {
    return unit == u',' && !is_blank(next);
}

bool has_tight_comma(std::u16string_view text) {
    return std::adjacent_find(text.begin(), text.end(), is_tight_comma) != text.end();
}

bool has_separator(std::u16string_view text, char16_t quote) {
    return holds_any(text, separators) || has_tight_comma(text) ||
           (quote != 0 && holds(text, quote));
}

/// A plain word's letters, or a sign that may stand among them.
bool stands_in_words(char16_t unit) {
    return is_letter(unit) || unit == u'\'' || unit == u'-';
}

/// Letters, with an apostrophe or a hyphen among them and a mark of punctuation behind.
bool is_plain_word(std::u16string_view word) {
    if (word.size() > 2 && holds(u",.;:!?", word.back())) {
        word.remove_suffix(1);
    }
    return word.size() > 1 && std::all_of(word.begin(), word.end(), stands_in_words);
}

bool is_text(std::u16string_view part) {
    return !part.empty() && !looks_like_number(part);
}

/// Several numbers, and nothing else, with blanks between them.
bool holds_numbers_alone(std::u16string_view text) {
    return !any_part(text, u' ', is_text);
}

/// The kind of a text that is no number and no date.
CellKind kind_of_text(std::u16string_view text, char16_t quote) {
    const std::u16string_view look = text.substr(0, longest_look);
    if (holds_only(look, punctuation)) {
        return CellKind::broken;
    }
    if (holds(look, gap)) {
        return CellKind::gap;
    }
    if (has_separator(look, quote)) {
        return CellKind::separated;
    }
    if (!holds(look, u' ')) {
        return CellKind::word;
    }
    return holds_numbers_alone(text) ? CellKind::separated : CellKind::words;
}

/// One, two or three times the same unit.
bool is_short_run(std::u16string_view text) {
    return text.size() <= 3 && text.find_first_not_of(text.front()) == std::u16string_view::npos;
}

bool is_word_for_nothing(std::u16string_view text) {
    static constexpr std::u16string_view words[] = {u"NA",  u"N/A",  u"#N/A", u"null",   u"\\N",
                                                    u"nil", u"none", u"NaN",  u"(null)", u"n.a."};
    return std::any_of(std::begin(words), std::end(words), [text](std::u16string_view word) {
        return ascii::equals_ignoring_case(text, word);
    });
}

bool stands_in_mail_addresses(char16_t unit) {
    return is_letter_or_digit(unit) || holds(u"@._-+", unit);
}

bool is_mail_address(std::u16string_view text) {
    return holds(text, u'@') && text.front() != u'@' &&
           std::all_of(text.begin(), text.end(), stands_in_mail_addresses);
}

bool begins_like_page(std::u16string_view text) {
    return text.starts_with(u"http://") || text.starts_with(u"https://");
}

/// A cell in quotes, or with half a pair of them: the quote is its first unit.
CellKind kind_in_quotes(std::u16string_view text) {
    const bool is_closed = text.size() > 1 && text.back() == text.front();
    return is_closed ? CellKind::quoted : CellKind::broken;
}

} // namespace

bool stands_for_nothing(std::u16string_view text) noexcept {
    constexpr std::size_t longest = 6;
    if (text.empty()) {
        return true;
    }
    if (text.size() > longest || !begins_like_nothing(text.front())) {
        return false;
    }
    return holds(u"-?.*", text.front()) ? is_short_run(text) : is_word_for_nothing(text);
}

bool reads_like_a_sentence(std::u16string_view text) noexcept {
    std::size_t words = 0;
    std::size_t lower = 0;
    const bool has_wide_gap = any_part(text, u' ', [&](std::u16string_view part) {
        if (is_plain_word(part)) {
            ++words;
            lower += one_if(!ascii::is_upper(part.front()));
        }
        return part.empty();
    });
    return !has_wide_gap && words >= 3 && lower >= 2;
}

bool is_single_value(std::u16string_view text) noexcept {
    return begins_like_page(text) ? !holds_any(text, u" \t;|,") : is_mail_address(text);
}

CellKind CellJudge::judge(std::u16string_view cell) {
    const std::u16string_view text = trimmed(cell);
    if (text.empty()) {
        return CellKind::missing;
    }
    if (ascii::is_digit(text.front()) && looks_like_number(text)) {
        return CellKind::number; // most cells are
    }
    CellMemory::Known& known = memory_->known_at(text.data());
    if (!known.is_of(text, quote_)) {
        known = {text.data(), static_cast<std::uint32_t>(text.size()), quote_, judge_filled(text)};
    }
    return known.kind;
}

/// Judges a trimmed cell that holds something, and is no number if it begins with a digit.
CellKind CellJudge::judge_filled(std::u16string_view text) {
    if (stands_for_nothing(text)) {
        return CellKind::missing;
    }
    if (is_quote(text.front(), quote_)) {
        return kind_in_quotes(text);
    }
    if (!is_letter_or_digit(text.front()) && looks_like_number(text)) {
        return CellKind::number;
    }
    return memory_->dates().is_date(text) ? CellKind::date : kind_of_text(text, quote_);
}

} // namespace textio::advice
