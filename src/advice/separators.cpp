#include "advice/separators.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <array>

namespace textio::advice {

namespace {

constexpr std::u16string_view never_delimiters = u" \"$'()+-@[]{}._\r\n\uFFFF";
constexpr std::u16string_view punctuation = u":=!?%&";
constexpr std::u16string_view framed_by_blanks = u"/<>&*^~!%";

/// Where more signs than these are on most lines, the unlikely ones separate nothing.
constexpr std::size_t most_suggested = 8;

constexpr double least_share_of_common = 0.1;
constexpr double least_share = 0.4;

/// Where one sign stands in the surveyed lines.
struct SignPlaces {
    std::size_t times = 0;
    std::size_t as_punctuation = 0; ///< behind something and before a blank
    std::size_t between_blanks = 0; ///< blanks or the line's ends at both sides
    std::size_t runs = 0;           ///< runs of the sign
    std::size_t single = 0;         ///< those of one
    std::size_t lines_with_single = 0;
    std::array<std::size_t, 5> multiples{}; ///< runs whose length is a multiple of the index
};

bool has_blank_before(std::u16string_view line, std::size_t at) {
    return at == 0 || is_blank(line[at - 1]);
}

bool has_blank_behind(std::u16string_view line, std::size_t end) {
    return end == line.size() || is_blank(line[end]);
}

/// Takes in a run of the sign, from `at` up to `end` of the line.
void add_run(std::u16string_view line, std::size_t at, std::size_t end, SignPlaces& places) {
    const std::size_t length = end - at;
    places.times += length;
    if (has_blank_behind(line, end)) {
        (has_blank_before(line, at) ? places.between_blanks : places.as_punctuation) += length;
    }
    ++places.runs;
    places.single += one_if(length == 1);
    const std::size_t longest = std::min(length, places.multiples.size() - 1);
    for (std::size_t divisor = 2; divisor <= longest; ++divisor) {
        places.multiples[divisor] += one_if(length % divisor == 0);
    }
}

void add_line(std::u16string_view line, char16_t sign, SignPlaces& places) {
    const std::size_t single = places.single;
    for_each_run(line, sign,
                 [&](std::size_t at, std::size_t end) { add_run(line, at, end, places); });
    places.lines_with_single += one_if(places.single != single);
}

SignPlaces places_of(const Survey& survey, char16_t sign) {
    SignPlaces places;
    for (const std::u16string_view line : survey.lines) {
        add_line(line, sign, places);
    }
    return places;
}

/// Whether the first line, which may name the columns, or a good part of all lines have the sign by
/// itself.
bool stands_alone(const SignPlaces& places, const Survey& survey, char16_t sign) {
    SignPlaces first;
    add_line(survey.first, sign, first);
    return first.single != 0 || places.lines_with_single * 4 >= survey.lines.size();
}

/// The length that nearly all runs of the sign are a multiple of; 1 where there is no such, or
/// where the sign stands by itself.
std::size_t common_run(const SignPlaces& places, const Survey& survey, char16_t sign) {
    if (places.runs == 0 || stands_alone(places, survey, sign)) {
        return 1;
    }
    std::size_t length = places.multiples.size() - 1;
    while (length > 1 && places.multiples[length] * 4 < places.runs * 3) {
        --length;
    }
    return length;
}

/// Fields between `,` `;` and tabs are often empty: two of these in a row are no sign of their own.
bool can_be_doubled(char16_t sign) {
    return !holds(u",;\t", sign);
}

double prior_of_seldom_sign(char16_t sign) {
    if (sign < u' ') {
        return weights::of_control;
    }
    return sign >= 0x80 ? weights::of_sign_beyond : weights::of_other_sign;
}

double prior_of_sign(char16_t sign) {
    const auto* const known =
        std::find_if(weights::of_signs.begin(), weights::of_signs.end(),
                     [sign](const weights::SignPrior& other) { return other.sign == sign; });
    return known == weights::of_signs.end() ? prior_of_seldom_sign(sign) : known->prior;
}

double prior_of(char16_t sign, const SignPlaces& places) {
    const double prior = prior_of_sign(sign);
    if (holds(punctuation, sign) && places.as_punctuation * 5 >= places.times * 4) {
        return prior * weights::as_punctuation;
    }
    if (holds(framed_by_blanks, sign) && places.between_blanks * 10 >= places.times * 9) {
        return std::max(prior, weights::between_blanks);
    }
    return prior;
}

/// Whether two of the quote stand in a text with nothing but the delimiter between them.
bool meets_itself(std::u16string_view text, char16_t quote, std::u16string_view delimiter) {
    return any_place(text, quote, [&](std::size_t at) {
        const std::u16string_view behind = text.substr(at + 1);
        return behind.starts_with(delimiter) && behind.substr(delimiter.size()).starts_with(quote);
    });
}

/// Where one quote stands in the lines of a table.
struct QuotePlaces {
    std::size_t opening = 0; ///< in front of a field
    std::size_t closing = 0; ///< behind one
    std::size_t inside = 0;  ///< alone within one: an apostrophe

    [[nodiscard]] bool is_around_some_fields() const {
        return opening != 0 && closing != 0 && opening + closing > inside;
    }

    void add(bool opens, bool closes) {
        if (opens != closes) {
            ++(opens ? opening : closing);
        } else {
            inside += one_if(!opens);
        }
    }
};

/// Takes in the run of the quote from `at` up to `end`; pairs of it stand for one within a field.
void add_quote_run(std::u16string_view line, std::size_t at, std::size_t end,
                   std::u16string_view delimiter, QuotePlaces& places) {
    if ((end - at) % 2 == 0) {
        return;
    }
    const std::u16string_view before = line.substr(0, at);
    const std::u16string_view behind = line.substr(end);
    places.add(before.empty() || before.ends_with(delimiter),
               behind.empty() || behind.starts_with(delimiter));
}

/// Whether a line has the quote at an end, or a field's end and the next one's beginning.
bool frames_fields_of(std::u16string_view line, char16_t quote, std::u16string_view delimiter) {
    const std::u16string_view text = trimmed(line);
    return text.front() == quote || text.back() == quote || meets_itself(text, quote, delimiter);
}

/// Whether a sign stands on enough lines to be tried.
bool is_frequent(char16_t sign, double share) {
    const bool is_common = holds(common_delimiters_of_files, sign);
    return share >= (is_common ? least_share_of_common : least_share);
}

Separator separator_of(const Survey& survey, char16_t sign, double share) {
    const SignPlaces places = can_be_doubled(sign) ? places_of(survey, sign) : SignPlaces();
    return {std::u16string(common_run(places, survey, sign), sign), prior_of(sign, places), share};
}

} // namespace

std::vector<Separator> suggested_separators(const Survey& survey) {
    std::vector<Separator> found;
    for (const SignCount& count : survey.signs) {
        const double share = survey.share_of(count.lines);
        if (is_frequent(count.sign, share) && !holds(never_delimiters, count.sign)) {
            found.push_back(separator_of(survey, count.sign, share));
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const Separator& left, const Separator& right) {
        return left.prior * left.share > right.prior * right.share;
    });
    found.resize(std::min(found.size(), most_suggested));
    return found;
}

bool occurs(const Survey& survey, std::u16string_view delimiter) {
    return !delimiter.empty() &&
           std::any_of(survey.lines.begin(), survey.lines.end(),
                       [delimiter](auto line) { return holds(line, delimiter); });
}

Separator named_separator(const Survey& survey, std::u16string_view delimiter) {
    if (delimiter.empty()) {
        return {};
    }
    const char16_t sign = delimiter.front();
    return {std::u16string(delimiter), prior_of(sign, places_of(survey, sign)), survey.share(sign)};
}

bool frames_fields(const Survey& survey, char16_t quote, std::u16string_view delimiter) {
    if (survey.share(quote) < 0.5 || holds(delimiter, quote)) {
        return false;
    }
    const auto framed =
        std::count_if(survey.lines.begin(), survey.lines.end(), [&](std::u16string_view line) {
            return frames_fields_of(line, quote, delimiter);
        });
    return static_cast<std::size_t>(framed) * 2 >= survey.lines.size();
}

bool frames_some_fields(const FieldArray& lines, char16_t quote, std::u16string_view delimiter) {
    if (holds(delimiter, quote)) {
        return false;
    }
    QuotePlaces places;
    for (const Field& field : lines.fields) {
        const std::u16string_view line = trimmed(field.view());
        for_each_run(line, quote, [&](std::size_t at, std::size_t end) {
            add_quote_run(line, at, end, delimiter, places);
        });
    }
    return places.is_around_some_fields();
}

} // namespace textio::advice
