#include "advice/text_kind.hpp"

#include "advice/cell_kind.hpp"
#include "advice/lines.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <iterator>
#include <optional>

namespace textio::advice {

namespace {

constexpr std::size_t most_lines = 32; ///< of the survey

bool holds_any(std::u16string_view text, std::u16string_view units) {
    return text.find_first_of(units) != std::u16string_view::npos;
}

bool ends_like_code(std::u16string_view line) {
    return holds_any(line.substr(line.size() - 1), u"{}[](),;:") ||
           holds_any(line.substr(0, 1), u"}]{[<");
}

bool is_bracket_line(std::u16string_view line) {
    return line.find_first_not_of(u"{}[](),; ") == std::u16string_view::npos &&
           holds_any(line, u"{}[]()");
}

/// An object in curly brackets, one a line.
bool is_object(std::u16string_view line) {
    return line.front() == u'{' && (line.ends_with(u"}") || line.ends_with(u"},"));
}

bool has_two_digits(std::u16string_view text, std::size_t at) {
    return at + 1 < text.size() && ascii::is_digit(text[at]) && ascii::is_digit(text[at + 1]);
}

/// What follows the time of day that stands in front of the first delimiter of a line.
std::optional<std::u16string_view> behind_time(std::u16string_view line) {
    constexpr std::size_t longest_stamp = 32;
    const std::u16string_view start = line.substr(0, longest_stamp);
    const std::size_t end = std::min(start.find_first_of(u",;\t|"), start.size());
    for (std::size_t at = 2; at < end; ++at) {
        if (line[at] == u':' && has_two_digits(line, at - 2) && has_two_digits(line, at + 1)) {
            const std::u16string_view rest = line.substr(at + 3);
            const bool has_seconds = rest.size() > 2 && rest[0] == u':' && has_two_digits(rest, 1);
            return has_seconds ? rest.substr(3) : rest;
        }
    }
    return std::nullopt;
}

bool begins_with_thousandths(std::u16string_view text) {
    return text.size() > 4 && text[0] == u',' && has_two_digits(text, 1) &&
           ascii::is_digit(text[3]) && text[4] == u' ';
}

/// Words that tell how grave a message is.
bool is_level(std::u16string_view word) {
    static constexpr std::u16string_view levels[] = {u"INFO",     u"ERROR", u"WARN",  u"WARNING",
                                                     u"DEBUG",    u"TRACE", u"FATAL", u"NOTICE",
                                                     u"CRITICAL", u"SEVERE"};
    return std::find(std::begin(levels), std::end(levels), word) != std::end(levels);
}

/// Small words that join others to a sentence, and stand in no cell of their own.
bool joins_words(std::u16string_view word) {
    static constexpr std::u16string_view joints[] = {
        u"for", u"from", u"to",   u"the", u"of",  u"in",  u"at",    u"on",   u"is",
        u"was", u"not",  u"with", u"by",  u"and", u"has", u"after", u"while"};
    return std::find(std::begin(joints), std::end(joints), word) != std::end(joints);
}

/// Whether what follows a time is a message: it has a level, or a word that joins others.
bool is_message(std::u16string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(u" []():"), text.size());
        const std::u16string_view word = text.substr(0, end);
        if (is_level(word) || joins_words(word)) {
            return true;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return false;
}

/// How many lines are what.
struct Counts {
    std::size_t messages = 0;
    std::size_t thousandths = 0;
    std::size_t sentences = 0;
    std::size_t code = 0;
    std::size_t brackets = 0;
    std::size_t objects = 0;

    void add(std::u16string_view line) {
        sentences += reads_like_a_sentence(line) ? 1U : 0U;
        code += ends_like_code(line) ? 1U : 0U;
        brackets += is_bracket_line(line) ? 1U : 0U;
        objects += is_object(line) ? 1U : 0U;
        if (const auto rest = behind_time(line)) {
            messages += is_message(*rest) ? 1U : 0U;
            thousandths += begins_with_thousandths(*rest) ? 1U : 0U;
        }
    }
};

} // namespace

TextKind kind_of_text(const Survey& survey) {
    const std::size_t lines = std::min(survey.lines.size(), most_lines);
    Counts counts;
    for (std::size_t line = 0; line < lines; ++line) {
        counts.add(trimmed(survey.lines[line]));
    }
    const auto are = [&](std::size_t count, std::size_t tenths) {
        return count * 10 >= lines * tenths;
    };
    return {are(counts.messages, 5), are(counts.thousandths, 5), are(counts.sentences, 5),
            (are(counts.code, 6) && are(counts.brackets, 1)) || are(counts.objects, 9)};
}

} // namespace textio::advice
