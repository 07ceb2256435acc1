#include "detection.hpp"

#include "textio/strategy_selector.hpp"

#include <algorithm>
#include <utility>

namespace detect_layout {

Detection detect(std::string file, std::unique_ptr<ByteSource> bytes, const Settings& settings) {
    auto input = std::make_unique<TextInput>(std::move(bytes), settings.encoding,
                                             settings.options.line_endings);
    textio::detection::StrategySelector selector(settings.options, settings.type_options);
    auto layout = selector.pick_strategy(input->text(), settings.rows);
    // The layout to fall back on comes without a valuation, and so without a number of variables.
    layout->valuation();
    return {std::move(file), std::move(input), std::move(layout)};
}

std::size_t header_line_count(const textio::GenericStrategy& layout) {
    return std::min(layout.header_lines(), layout.field_array()->line_count());
}

std::vector<std::size_t> data_lines(const textio::GenericStrategy& layout) {
    const textio::FieldArray& sample = *layout.field_array();
    std::vector<std::size_t> lines;
    for (std::size_t line = header_line_count(layout); line < sample.line_count(); ++line) {
        if (!sample.line(line).empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

} // namespace detect_layout
