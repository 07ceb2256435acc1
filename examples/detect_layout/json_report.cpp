#include "json_report.hpp"

#include "json_parts.hpp"

namespace detect_layout {

std::string to_json(const Detection& detection, const std::optional<Explanation>& explanation) {
    const auto& [file, input, layout] = detection;
    Json answer{{"file", file}};
    add_layout(answer, *layout);
    answer["header_lines"] = layout->header_lines();
    answer["num_variables"] = layout->num_variables();
    answer["rows"] = data_lines(*layout).size();
    add_input(answer, file, *input);
    add_explanation(answer, explanation);
    return json_line(answer);
}

} // namespace detect_layout
