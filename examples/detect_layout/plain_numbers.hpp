#pragma once

#include <string>
#include <string_view>

namespace detect_layout {

/// Numbers as every program reads them: a point as the decimal mark, and nothing between digits.
class PlainNumbers {
public:
    /// From numbers with these marks; 0 stands for none.
    PlainNumbers(char16_t decimal_mark, char16_t thousands_separator);

    /// Whether the numbers are plain as they are.
    [[nodiscard]] bool are_plain() const noexcept { return decimal_ == u'.' && thousands_ == 0; }

    /// Writes the plain number that `text` is to `to`, where there is room for its size, and gives
    /// the end; null if it is no number with these marks.
    [[nodiscard]] char* write(std::u16string_view text, char* to) const noexcept;

private:
    char16_t decimal_;
    char16_t thousands_;
};

/// The number that JSON has for the plain number `text`, put into `buffer` if it is another text;
/// nothing if it has none. A number that begins with a needless 0 is more of a name and has none.
[[nodiscard]] std::string_view json_number(std::string_view text, std::string& buffer);

} // namespace detect_layout
