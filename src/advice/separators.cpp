#include "advice/separators.hpp"

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

bool holds(std::u16string_view units, char16_t unit) {
    return units.find(unit) != std::u16string_view::npos;
}

/// Where one sign stands in the surveyed lines.
struct SignPlaces {
    std::size_t times = 0;
    std::size_t as_punctuation = 0; ///< behind something and before a blank
    std::size_t between_blanks = 0; ///< blanks or the line's ends at both sides
    std::size_t runs = 0;           ///< runs of the sign
    std::size_t lines_with_single = 0;
    std::array<std::size_t, 5> multiples{}; ///< runs whose length is a multiple of the index
};

/// Takes in a run of the sign, from `at` up to `end` of the line.
void add_run(std::u16string_view line, std::size_t at, std::size_t end, SignPlaces& places) {
    const std::size_t length = end - at;
    const bool blank_before = at == 0 || is_blank(line[at - 1]);
    const bool blank_behind = end == line.size() || is_blank(line[end]);
    places.times += length;
    places.as_punctuation += !blank_before && blank_behind ? length : 0;
    places.between_blanks += blank_before && blank_behind ? length : 0;
    ++places.runs;
    for (std::size_t divisor = 2; divisor < places.multiples.size(); ++divisor) {
        places.multiples[divisor] += length % divisor == 0 ? 1U : 0U;
    }
}

void add_line(std::u16string_view line, char16_t sign, SignPlaces& places) {
    bool has_single = false;
    for (std::size_t at = line.find(sign); at != std::u16string_view::npos;) {
        const std::size_t end = std::min(line.find_first_not_of(sign, at), line.size());
        add_run(line, at, end, places);
        has_single = has_single || end - at == 1;
        at = line.find(sign, end);
    }
    places.lines_with_single += has_single ? 1U : 0U;
}

SignPlaces places_of(const Survey& survey, char16_t sign) {
    SignPlaces places;
    for (const std::u16string_view line : survey.lines) {
        add_line(line, sign, places);
    }
    return places;
}

/// The length that nearly all runs of the sign are a multiple of; 1 where there is no such, or
/// where the first line, which may name the columns, has the sign by itself.
std::size_t common_run(const SignPlaces& places, const Survey& survey, char16_t sign) {
    SignPlaces first;
    add_line(survey.first, sign, first);
    const bool stands_alone =
        first.lines_with_single != 0 || places.lines_with_single * 4 >= survey.lines.size();
    for (std::size_t length = places.multiples.size() - 1; length > 1 && !stands_alone; --length) {
        if (places.runs != 0 && places.multiples[length] * 4 >= places.runs * 3) {
            return length;
        }
    }
    return 1;
}

/// Fields between `,` `;` and tabs are often empty: two of these in a row are no sign of their own.
bool can_be_doubled(char16_t sign) {
    return sign != u',' && sign != u';' && sign != u'\t';
}

double prior_of_sign(char16_t sign) {
    for (const auto& known : weights::of_signs) {
        if (known.sign == sign) {
            return known.prior;
        }
    }
    if (sign < u' ') {
        return weights::of_control;
    }
    return sign >= 0x80 ? weights::of_sign_beyond : weights::of_other_sign;
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
    for (std::size_t at = text.find(quote); at != std::u16string_view::npos;
         at = text.find(quote, at + 1)) {
        const std::u16string_view behind = text.substr(at + 1);
        if (behind.size() > delimiter.size() && behind[delimiter.size()] == quote &&
            behind.starts_with(delimiter)) {
            return true;
        }
    }
    return false;
}

/// Where one quote stands in the lines of a table.
struct QuotePlaces {
    std::size_t opening = 0; ///< in front of a field
    std::size_t closing = 0; ///< behind one
    std::size_t inside = 0;  ///< alone within one: an apostrophe

    [[nodiscard]] bool is_around_some_fields() const {
        return opening != 0 && closing != 0 && opening + closing > inside;
    }
};

/// Takes in the run of the quote from `at` up to `end`; pairs of it stand for one within a field.
void add_quote_run(std::u16string_view line, std::size_t at, std::size_t end,
                   std::u16string_view delimiter, QuotePlaces& places) {
    if ((end - at) % 2 == 0) {
        return;
    }
    const bool opens = at == 0 || line.substr(0, at).ends_with(delimiter);
    const bool closes = end == line.size() || line.substr(end).starts_with(delimiter);
    places.opening += opens && !closes ? 1U : 0U;
    places.closing += closes && !opens ? 1U : 0U;
    places.inside += !opens && !closes ? 1U : 0U;
}

} // namespace

std::vector<Separator> suggested_separators(const Survey& survey) {
    std::vector<Separator> found;
    for (const SignCount& count : survey.signs) {
        const bool is_common = holds(common_delimiters_of_files, count.sign);
        const double share = survey.share_of(count.lines);
        if (share < (is_common ? least_share_of_common : least_share) ||
            holds(never_delimiters, count.sign)) {
            continue;
        }
        const SignPlaces places =
            can_be_doubled(count.sign) ? places_of(survey, count.sign) : SignPlaces{};
        found.push_back({std::u16string(common_run(places, survey, count.sign), count.sign),
                         prior_of(count.sign, places), share});
    }
    std::stable_sort(found.begin(), found.end(), [](const Separator& left, const Separator& right) {
        return left.prior * left.share > right.prior * right.share;
    });
    found.resize(std::min(found.size(), most_suggested));
    return found;
}

bool occurs(const Survey& survey, std::u16string_view delimiter) {
    return !delimiter.empty() &&
           std::any_of(survey.lines.begin(), survey.lines.end(), [&](auto line) {
               return line.find(delimiter) != std::u16string_view::npos;
           });
}

Separator named_separator(const Survey& survey, std::u16string_view delimiter) {
    if (delimiter.empty()) {
        return {};
    }
    const char16_t sign = delimiter.front();
    return {std::u16string(delimiter), prior_of(sign, places_of(survey, sign)), survey.share(sign)};
}

bool frames_fields(const Survey& survey, char16_t quote, std::u16string_view delimiter) {
    if (survey.share(quote) < 0.5 || delimiter.find(quote) != std::u16string_view::npos) {
        return false;
    }
    const auto framed =
        std::count_if(survey.lines.begin(), survey.lines.end(), [&](std::u16string_view line) {
            const std::u16string_view text = trimmed(line);
            return text.front() == quote || text.back() == quote ||
                   meets_itself(text, quote, delimiter);
        });
    return static_cast<std::size_t>(framed) * 2 >= survey.lines.size();
}

bool frames_some_fields(const FieldArray& lines, char16_t quote, std::u16string_view delimiter) {
    if (delimiter.find(quote) != std::u16string_view::npos) {
        return false;
    }
    QuotePlaces places;
    for (const Field& field : lines.fields) {
        const std::u16string_view line = trimmed(field.view());
        for (std::size_t at = line.find(quote); at != std::u16string_view::npos;) {
            const std::size_t end = std::min(line.find_first_not_of(quote, at), line.size());
            add_quote_run(line, at, end, delimiter, places);
            at = line.find(quote, end);
        }
    }
    return places.is_around_some_fields();
}

} // namespace textio::advice
