#include "report.hpp"

#include "cell_text.hpp"
#include "input_words.hpp"
#include "layout_names.hpp"

#include <fmt/format.h>

namespace detect_layout {

std::string describe(const Detection& detection) {
    const auto& [file, input, layout] = detection;
    return one_line(file) + "\n" + answer_line("layout", layout_phrase(*layout)) +
           answer_line("header lines", std::to_string(layout->header_lines())) +
           answer_line("variables", std::to_string(layout->num_variables())) +
           answer_line("rows sampled", std::to_string(data_lines(*layout).size())) +
           input_lines(*input);
}

std::string summarise(const Detection& detection) {
    const auto& [file, input, layout] = detection;
    return fmt::format("{}: {}, {}, {}, {}, {}\n", one_line(file), layout_phrase(*layout),
                       counted(layout->header_lines(), "header line"),
                       counted(layout->num_variables(), "variable"),
                       counted(data_lines(*layout).size(), "row"), input_summary(*input));
}

} // namespace detect_layout
