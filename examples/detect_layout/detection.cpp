#include "detection.hpp"

#include "textio/strategy_selector.hpp"

#include <algorithm>
#include <utility>

namespace detect_layout {

Detection detect(std::string file, std::unique_ptr<ByteSource> bytes, const Settings& settings) {
    auto input = std::make_unique<TextInput>(std::move(bytes), settings.encoding,
                                             settings.options.line_endings);
    auto layout = ask_rules(input->text(), settings);
    return {std::move(file), std::move(input), std::move(layout)};
}

std::shared_ptr<textio::GenericStrategy> ask_rules(const textio::Field& text,
                                                   const Settings& settings) {
    textio::detection::StrategySelector selector(settings.options, settings.type_options);
    auto layout = selector.pick_strategy(text, settings.rows);
    // The layout to fall back on comes without a valuation, and so without a number of variables.
    layout->valuation();
    return layout;
}

std::size_t header_line_count(const textio::GenericStrategy& layout) {
    return std::min(layout.header_lines(), layout.field_array()->line_count());
}

std::vector<std::size_t> filled_lines(const textio::FieldArray& sample, std::size_t first) {
    std::vector<std::size_t> lines;
    for (std::size_t line = first; line < sample.line_count(); ++line) {
        if (!sample.line(line).empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

std::vector<std::size_t> data_lines(const textio::GenericStrategy& layout) {
    return filled_lines(*layout.field_array(), header_line_count(layout));
}

} // namespace detect_layout
