#pragma once

#include "table.hpp"

#include <cstddef>
#include <string>

namespace detect_layout {

/// How a picture is to look.
struct PictureStyle {
    bool colour = false;        ///< columns in colours, names bold, other header lines dimmed
    std::size_t width = 80;     ///< terminal columns
    std::size_t data_rows = 10; ///< rows to show
};

/// The first rows of the sample with their columns set apart, below their names and what else
/// stands above them. Lines that end with a line feed; empty if there are no data rows.
[[nodiscard]] std::string draw_picture(const Table& table, const PictureStyle& style);

} // namespace detect_layout
