#include "advice/text_kind.hpp"

#include "advice/cell_kind.hpp"
#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <iterator>
#include <optional>

namespace textio::advice {

namespace {

constexpr std::size_t most_lines = 32; ///< of the survey

bool ends_like_code(std::u16string_view line) {
    return holds_any(line.substr(line.size() - 1), u"{}[](),;:") ||
           holds_any(line.substr(0, 1), u"}]{[<");
}

bool is_bracket_line(std::u16string_view line) {
    return holds_only(line, u"{}[](),; ") && holds_any(line, u"{}[]()");
}

/// An object in curly brackets, one a line.
bool is_object(std::u16string_view line) {
    return line.front() == u'{' && (line.ends_with(u"}") || line.ends_with(u"},"));
}

bool has_two_digits(std::u16string_view text, std::size_t at) {
    return at + 1 < text.size() && ascii::is_digit(text[at]) && ascii::is_digit(text[at + 1]);
}

bool is_colon_of_time(std::u16string_view line, std::size_t at) {
    return line[at] == u':' && has_two_digits(line, at - 2) && has_two_digits(line, at + 1);
}

bool has_seconds(std::u16string_view behind_minutes) {
    return behind_minutes.starts_with(u':') && has_two_digits(behind_minutes, 1);
}

/// What follows the time of day that stands in front of the first delimiter of a line.
std::optional<std::u16string_view> behind_time(std::u16string_view line) {
    constexpr std::size_t longest_stamp = 32;
    const std::u16string_view start = line.substr(0, longest_stamp);
    const std::size_t end = std::min(start.find_first_of(u",;\t|"), start.size());
    for (std::size_t at = 2; at < end; ++at) {
        if (is_colon_of_time(line, at)) {
            const std::u16string_view rest = line.substr(at + 3);
            return has_seconds(rest) ? rest.substr(3) : rest;
        }
    }
    return std::nullopt;
}

bool begins_with_thousandths(std::u16string_view text) {
    return text.starts_with(u',') && ascii::skip_digits(text, 1) == 4 &&
           text.substr(4).starts_with(u' ');
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

bool tells_of_message(std::u16string_view word) {
    return is_level(word) || joins_words(word);
}

/// Whether what follows a time is a message: it has a level, or a word that joins others.
bool is_message(std::u16string_view text) {
    return any_part(text, u" []():", tells_of_message);
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
        sentences += one_if(reads_like_a_sentence(line));
        code += one_if(ends_like_code(line));
        brackets += one_if(is_bracket_line(line));
        objects += one_if(is_object(line));
        const auto message = behind_time(line);
        messages += one_if(message && is_message(*message));
        thousandths += one_if(message && begins_with_thousandths(*message));
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
