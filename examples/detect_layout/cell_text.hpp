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
/// signs that can be seen, wide characters count as two columns, combining ones and joiners as
/// none, soft hyphens are left out, and what is cut off leaves an ellipsis behind.
[[nodiscard]] CellText printable(std::u16string_view text, std::size_t limit);

/// The text `utf8` with all that would do something to a terminal made visible; undecodable bytes
/// become U+FFFD.
[[nodiscard]] std::string one_line(std::string_view utf8);

} // namespace detect_layout
