#include "advice/cell_kind.hpp"

#include "advice/lines.hpp"
#include "advice/number_shape.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <cstddef>

namespace textio::advice {

namespace {

/// What the units of a text say of it, in one look.
struct UnitSigns {
    bool has_digit = false;
    bool has_date_sign = false; ///< one of the signs between the parts of a date
    bool has_blank = false;
    bool has_gap = false;       ///< a run of three blanks
    bool has_separator = false; ///< a separator inside, or a comma with no blank behind it
    bool is_punctuation = true; ///< nothing but separators
};

constexpr std::size_t gap_blanks = 3;
constexpr std::size_t longest_look = 200; ///< units of a text; what begins like this goes on so

constexpr bool is_punctuation(char16_t unit) {
    return unit == u',' || unit == u';' || unit == u'|' || unit == u'\t' || unit == u':';
}

/// Whether the unit at a place mostly separates fields: a comma does unless a blank follows.
constexpr bool separates(std::u16string_view text, std::size_t at, char16_t quote) {
    const char16_t unit = text[at];
    if (unit == u',') {
        return at + 1 < text.size() && !is_blank(text[at + 1]);
    }
    return unit == u';' || unit == u'|' || unit == u'\t' || (unit == quote && quote != 0);
}

UnitSigns look_at(std::u16string_view text, char16_t quote) {
    UnitSigns signs;
    std::size_t blanks = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        const bool is_digit = ascii::is_digit(unit);
        if (is_digit || is_letter(unit)) {
            signs.has_digit = signs.has_digit || is_digit;
            signs.is_punctuation = false;
            blanks = 0;
            continue;
        }
        blanks = unit == u' ' ? blanks + 1 : 0;
        signs.has_blank = signs.has_blank || unit == u' ';
        signs.has_gap = signs.has_gap || blanks == gap_blanks;
        signs.has_date_sign = signs.has_date_sign || stands_in_dates(unit);
        signs.has_separator = signs.has_separator || separates(text, at, quote);
        signs.is_punctuation = signs.is_punctuation && is_punctuation(unit);
    }
    return signs;
}

/// Letters, with an apostrophe or a hyphen among them and a mark of punctuation behind.
bool is_plain_word(std::u16string_view word) {
    constexpr std::u16string_view ends = u",.;:!?";
    if (word.size() > 2 && ends.find(word.back()) != std::u16string_view::npos) {
        word.remove_suffix(1);
    }
    return word.size() > 1 && std::all_of(word.begin(), word.end(), [](char16_t unit) {
               return is_letter(unit) || unit == u'\'' || unit == u'-';
           });
}

/// Several numbers, and nothing else, with blanks between them.
bool holds_numbers_alone(std::u16string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u' '), text.size());
        if (end != 0 && !looks_like_number(text.substr(0, end))) {
            return false;
        }
        text = text.substr(std::min(end + 1, text.size()));
    }
    return true;
}

/// The kind of a text that is no number and no date.
CellKind kind_of_text(std::u16string_view text, const UnitSigns& signs) {
    if (signs.is_punctuation) {
        return CellKind::broken;
    }
    if (signs.has_gap) {
        return CellKind::gap;
    }
    if (signs.has_separator) {
        return CellKind::separated;
    }
    if (!signs.has_blank) {
        return CellKind::word;
    }
    return holds_numbers_alone(text) ? CellKind::separated : CellKind::words;
}

} // namespace

bool stands_for_nothing(std::u16string_view text) noexcept {
    static constexpr std::u16string_view words[] = {u"NA",  u"N/A",  u"#N/A", u"null",   u"\\N",
                                                    u"nil", u"none", u"NaN",  u"(null)", u"n.a."};
    constexpr std::size_t longest = 6;
    if (text.empty()) {
        return true;
    }
    if (text.size() > longest || !begins_like_nothing(text.front())) {
        return false;
    }
    constexpr std::u16string_view fillers = u"-?.*";
    if (fillers.find(text.front()) != std::u16string_view::npos) {
        return text.size() <= 3 &&
               text.find_first_not_of(text.front()) == std::u16string_view::npos;
    }
    return std::any_of(std::begin(words), std::end(words), [&](std::u16string_view word) {
        return ascii::equals_ignoring_case(text, word);
    });
}

bool reads_like_a_sentence(std::u16string_view text) noexcept {
    std::size_t words = 0;
    std::size_t lower = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u' '), text.size());
        if (end == 0) {
            return false;
        }
        if (is_plain_word(text.substr(0, end))) {
            ++words;
            lower += ascii::is_upper(text.front()) ? 0U : 1U;
        }
        text = text.substr(std::min(end + 1, text.size()));
    }
    return words >= 3 && lower >= 2;
}

bool is_single_value(std::u16string_view text) noexcept {
    if (text.starts_with(u"http://") || text.starts_with(u"https://")) {
        return text.find_first_of(u" \t;|,") == std::u16string_view::npos;
    }
    const std::size_t at = text.find(u'@');
    return at != std::u16string_view::npos && at > 0 &&
           std::all_of(text.begin(), text.end(), [](char16_t unit) {
               return is_letter(unit) || ascii::is_digit(unit) || unit == u'@' || unit == u'.' ||
                      unit == u'_' || unit == u'-' || unit == u'+';
           });
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
    if (known.begin != text.data() || known.size != text.size() || known.quote != quote_) {
        known = {text.data(), static_cast<std::uint32_t>(text.size()), quote_, judge_filled(text)};
    }
    return known.kind;
}

/// Judges a trimmed cell that holds something, and is no number if it begins with a digit.
CellKind CellJudge::judge_filled(std::u16string_view text) {
    if (stands_for_nothing(text)) {
        return CellKind::missing;
    }
    if (text.front() == quote_ && quote_ != 0) {
        return text.size() == 1 || text.back() != quote_ ? CellKind::broken : CellKind::quoted;
    }
    const bool is_judged = is_letter(text.front()) || ascii::is_digit(text.front());
    if (!is_judged && looks_like_number(text)) {
        return CellKind::number;
    }
    const UnitSigns signs = look_at(text.substr(0, longest_look), quote_);
    if (signs.has_digit && signs.has_date_sign && memory_->dates().is_date(text)) {
        return CellKind::date;
    }
    return kind_of_text(text, signs);
}

} // namespace textio::advice
