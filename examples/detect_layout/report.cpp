#include "report.hpp"

#include "cell_text.hpp"
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

std::string describe(const Detection& detection) {
    const auto& [file, input, layout] = detection;
    std::string text = one_line(file) + "\n";
    const auto add = [&text](std::string_view what, std::string_view value) {
        text += fmt::format("  {:<14} {}\n", what, value);
    };
    add("layout", layout_phrase(*layout));
    add("header lines", std::to_string(layout->header_lines()));
    add("variables", std::to_string(layout->num_variables()));
    add("rows sampled", std::to_string(data_lines(*layout).size()));
    add("character set", character_set_phrase(input->character_set()));
    if (input->undecodable() > 0) {
        add("", what_was_lost(*input) + ", shown as \uFFFD");
    }
    if (input->is_unpacked()) {
        add("compressed", "by gzip");
    }
    if (input->is_cut()) {
        add("part read", input->text().size > 0
                             ? fmt::format("the first {} UTF-16 code units", input->text().size)
                             : "nothing, as no line ends in the first 4194304 UTF-16 code units");
    }
    return text;
}

std::string summarise(const Detection& detection) {
    const auto& [file, input, layout] = detection;
    std::string text = fmt::format("{}: {}, {}, {}, {}, {}", one_line(file), layout_phrase(*layout),
                                   counted(layout->header_lines(), "header line"),
                                   counted(layout->num_variables(), "variable"),
                                   counted(data_lines(*layout).size(), "row"),
                                   character_set_phrase(input->character_set()));
    if (input->undecodable() > 0) {
        text += ", " + what_was_lost(*input);
    }
    return text + "\n";
}

} // namespace detect_layout
