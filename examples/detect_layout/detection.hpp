#pragma once

#include "bytes.hpp"
#include "settings.hpp"
#include "text_input.hpp"
#include "textio/strategy.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace detect_layout {

/// An input and the layout that the rules find for it.
struct Detection {
    std::string file;
    std::unique_ptr<TextInput> input; ///< keeps the text that the layout's fields view
    std::shared_ptr<textio::GenericStrategy> layout;
};

/// Finds the layout of the text that `bytes` hold. Throws `UserError` if they cannot be read.
[[nodiscard]] Detection detect(std::string file, std::unique_ptr<ByteSource> bytes,
                               const Settings& settings);

/// The layout that the rules find for `text`, valued. Its fields are views of the text.
[[nodiscard]] std::shared_ptr<textio::GenericStrategy> ask_rules(const textio::Field& text,
                                                                 const Settings& settings);

/// The lines of the sample above the data, at most as many as the sample has.
[[nodiscard]] std::size_t header_line_count(const textio::GenericStrategy& layout);

/// The indexes of the lines of `sample` that have fields, from line `first` on.
[[nodiscard]] std::vector<std::size_t> filled_lines(const textio::FieldArray& sample,
                                                    std::size_t first);

/// The indexes of the sample's lines with data: neither header nor empty nor comment.
[[nodiscard]] std::vector<std::size_t> data_lines(const textio::GenericStrategy& layout);

} // namespace detect_layout
