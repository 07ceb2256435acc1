#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace detect_layout {

/// A text as it can be shown in a terminal.
struct CellText {
    std::string utf8;
    std::size_t width = 0; ///< terminal columns that it takes up
};

/// `text` made fit to be shown in at most `limit` terminal columns. Control characters become
/// signs that can be seen, wide characters count as two columns, combining ones as none, and what
/// is cut off leaves an ellipsis behind.
[[nodiscard]] CellText printable(std::u16string_view text, std::size_t limit);

} // namespace detect_layout
