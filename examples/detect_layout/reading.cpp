#include "reading.hpp"

#include "common_ideographs.hpp"
#include "unicode.hpp"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>

namespace detect_layout {

namespace {

/// All grades are logarithms of probabilities, of characters beyond ASCII one by one. Only their
/// differences count.
namespace grade {
constexpr double undecodable = -12;
constexpr double nonsense = -10;          ///< a character that hardly any text has
constexpr double foreign_letter = -7;     ///< a letter that none of the languages has
constexpr double loan_letter = -5;        ///< a letter of another language with the same set
constexpr double sign = -3.5;             ///< a quotation mark, a dash, a currency, a degree
constexpr double ideograph = -8;          ///< one of thousands, for two bytes
constexpr double common_ideograph = -5.5; ///< one of those that make up half of every text
constexpr double rare_ideograph = -2;     ///< added to those that the set keeps apart as rare
constexpr double syllable = -6.5;         ///< of the Korean alphabet, for two bytes
constexpr double kana = -4.5;             ///< of the Japanese alphabets, for two bytes
constexpr double narrow_kana = -6;        ///< the same in one byte, of a time long ago
constexpr double recognised = 2.5;        ///< added to each of these if ICU is sure of the set
constexpr double misplaced = -3;       ///< added to a capital behind a small letter, and the like
constexpr double initial_capital = -1; ///< added to a capital at the start of a word
} // namespace grade

bool is_small(char16_t unit) {
    return u_islower(unit) != 0;
}

bool is_capital(char16_t unit) {
    return u_isupper(unit) != 0;
}

bool is_letter(char16_t unit) {
    return u_isalpha(unit) != 0;
}

/// Usual in texts of any language, `ª` to `º` also where they count as letters.
bool is_usual_sign(char16_t unit) {
    constexpr std::u16string_view signs = u"\u00A0\u00A3\u00A7\u00A9\u00AA\u00AB\u00AE\u00B0\u00B1"
                                          u"\u00B2\u00B3\u00B5\u00B7\u00BA\u00BB"
                                          u"\u00BC\u00BD\u00BE\u00D7\u2013\u2014\u2018\u2019\u201A"
                                          u"\u201C\u201D\u201E\u2022\u2026\u20AC"
                                          u"\u2116\u2122";
    return signs.find(unit) != std::u16string_view::npos;
}

UScriptCode script_of(char16_t unit) {
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(unit, &status);
}

/// Japanese writes a word in several scripts.
UScriptCode script_of_word(char16_t unit) {
    const auto script = script_of(unit);
    return script == USCRIPT_HIRAGANA || script == USCRIPT_KATAKANA ? USCRIPT_HAN : script;
}

bool is_ascii_letter(char16_t unit) {
    return unit < 0x80 && is_letter(unit);
}

/// Only an apostrophe stands between letters, and it does not begin a word.
double grade_of_sign_place(char16_t before, char16_t unit, char16_t behind) {
    const bool is_apostrophe = unit == u'\u2019';
    return is_letter(behind) && is_letter(before) != is_apostrophe ? grade::misplaced : 0;
}

double grade_of_capital_place(char16_t before) {
    return is_small(before) ? grade::misplaced : is_capital(before) ? 0 : grade::initial_capital;
}

/// In Latin writing the letters beyond ASCII are the exceptions, in other writing the rule.
bool is_among_its_like(char16_t before, UScriptCode script, char16_t behind) {
    const auto is_like = [script](char16_t neighbour) {
        return is_letter(neighbour) && is_ascii_letter(neighbour) == (script == USCRIPT_LATIN);
    };
    return is_like(before) || is_like(behind);
}

/// How well a character goes with those before and behind it, 0 at best.
double grade_of_place(char16_t before, char16_t unit, char16_t behind) {
    if (!is_letter(unit) || is_usual_sign(unit)) {
        return grade_of_sign_place(before, unit, behind);
    }
    const auto script = script_of_word(unit);
    const auto is_strange = [script](char16_t neighbour) {
        return is_letter(neighbour) && script_of_word(neighbour) != script;
    };
    double result = is_capital(unit) ? grade_of_capital_place(before) : 0;
    result += is_strange(before) || is_strange(behind) ? grade::misplaced : 0;
    return result + (is_among_its_like(before, script, behind) ? 0 : grade::misplaced);
}

double grade_of_east_asian(char16_t unit, double confidence) {
    const double more = grade::recognised * confidence;
    switch (script_of(unit)) {
    case USCRIPT_HAN:
        return (is_common_ideograph(unit) ? grade::common_ideograph : grade::ideograph) + more;
    case USCRIPT_HANGUL:
        return grade::syllable + more;
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
        return unit >= 0xFF00 ? grade::narrow_kana : grade::kana + more;
    default:
        break;
    }
    const bool is_wide_sign = (unit >= 0x3000 && unit < 0x3020) || (unit > 0xFF00 && unit < 0xFF60);
    return is_wide_sign ? grade::sign : grade::nonsense;
}

char16_t small(char16_t unit) {
    const auto folded = static_cast<char16_t>(u_tolower(unit));
    return folded < 0x80 ? unit : folded;
}

/// A few letters make up most of every text.
double grade_of_letter(char16_t unit, std::u16string_view language, Languages languages) {
    if (const auto rank = language.find(unit); rank != std::u16string_view::npos) {
        const double decay = std::max(1.5, 0.3 * static_cast<double>(language.size()));
        return -std::log(decay) - static_cast<double>(rank) / decay;
    }
    const bool is_loan = std::any_of(languages.begin(), languages.end(), [unit](auto other) {
        return other.find(unit) != std::u16string_view::npos;
    });
    const bool is_alike = is_letter(unit) && script_of(unit) == script_of(language.front());
    return is_loan ? grade::loan_letter : is_alike ? grade::foreign_letter : grade::nonsense;
}

/// The characters beyond ASCII of a text.
struct Tally {
    std::map<char16_t, std::size_t> counts; ///< of small letters and of all else
    std::size_t characters = 0;
    double places = 0; ///< the grades of their places
};

Tally tally_of(std::u16string_view text) {
    Tally tally;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] >= 0x80) {
            ++tally.counts[small(text[i])];
            ++tally.characters;
            tally.places += grade_of_place(i > 0 ? text[i - 1] : u'\n', text[i],
                                           i + 1 < text.size() ? text[i + 1] : u'\n');
        }
    }
    return tally;
}

template <typename GradeOf>
double total_of(const Tally& tally, GradeOf grade_of) {
    double total = tally.places;
    for (const auto& [unit, count] : tally.counts) {
        total += static_cast<double>(count) * (unit == replacement_character ? grade::undecodable
                                               : is_usual_sign(unit)         ? grade::sign
                                                                             : grade_of(unit));
    }
    return total;
}

Reading reading_of(double total, std::size_t bytes) {
    return {total, total / static_cast<double>(std::max<std::size_t>(bytes, 1))};
}

} // namespace

Reading read_as_languages(std::u16string_view text, Languages languages) {
    const Tally tally = tally_of(text);
    double best = -std::numeric_limits<double>::infinity();
    for (const auto language : languages) {
        best = std::max(best, total_of(tally, [=](char16_t unit) {
                            return grade_of_letter(unit, language, languages);
                        }));
    }
    return reading_of(best, tally.characters);
}

Reading read_as_east_asian(std::u16string_view text, std::size_t rare_ideographs,
                           double confidence) {
    const Tally tally = tally_of(text);
    const double total = total_of(
        tally, [confidence](char16_t unit) { return grade_of_east_asian(unit, confidence); });
    // Nearly all of them take two bytes.
    return reading_of(total + grade::rare_ideograph * static_cast<double>(rare_ideographs),
                      2 * tally.characters);
}

} // namespace detect_layout
