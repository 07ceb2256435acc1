#include "input_words.hpp"

#include "layout_names.hpp"

#include <fmt/format.h>

namespace detect_layout {

namespace {

std::string character_set_phrase(const CharacterSet& set) {
    return set.rival.empty() ? set.name
                             : fmt::format("{} (not sure, perhaps {})", set.name, set.rival);
}

std::string what_was_lost(const TextInput& input) {
    return counted(input.undecodable(), "undecodable byte sequence");
}

} // namespace

std::string answer_line(std::string_view what, std::string_view value) {
    return fmt::format("  {:<14} {}\n", what, value);
}

std::string input_lines(const TextInput& input) {
    std::string text = answer_line("character set", character_set_phrase(input.character_set()));
    if (input.undecodable() > 0) {
        text += answer_line("", what_was_lost(input) + ", shown as \uFFFD");
    }
    if (input.is_unpacked()) {
        text += answer_line("compressed", "by gzip");
    }
    if (input.is_cut()) {
        text += answer_line(
            "part read", input.text().size > 0
                             ? fmt::format("the first {} UTF-16 code units", input.text().size)
                             : "nothing, as no line ends in the first 4194304 UTF-16 code units");
    }
    return text;
}

std::string input_summary(const TextInput& input) {
    const std::string set = character_set_phrase(input.character_set());
    return input.undecodable() > 0 ? fmt::format("{}, {}", set, what_was_lost(input)) : set;
}

} // namespace detect_layout
