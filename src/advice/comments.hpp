/// \file
/// Which sign opens comments in a text.
#pragma once

#include "textio/field.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace textio::advice {

/// The opener that begins most lines, as comments do: the first line, or several lines, but not
/// all. One that begins with the delimiter of the rows is none: these have an empty first field.
/// Empty if there is none. `lines` is the text read as one field a line, comments included.
[[nodiscard]] std::u16string_view choose_comment_opener(const FieldArray& lines,
                                                        std::span<const std::u16string> openers);

/// Opens and closes the comments that may run over several lines.
inline constexpr std::u16string_view block_opener = u"/*";
inline constexpr std::u16string_view block_closer = u"*/";

/// Whether there are such comments: a line begins with the opener, the same or a later one ends
/// with the closer, each one is closed, and lines are left beside them. `lines` as above.
[[nodiscard]] bool has_block_comments(const FieldArray& lines);

/// Whether `line` is a comment under this opener, which may be empty for none.
[[nodiscard]] bool is_comment(std::u16string_view line, std::u16string_view opener) noexcept;

/// Whether the comments of `style`, as `parser::options::comment_style` has them, are comments
/// around a table whose first data stand on `first_data_line`: they stand within it, or all lines
/// above it but its names are such.
[[nodiscard]] bool are_comments(const FieldArray& lines, std::span<const std::u16string> style,
                                std::size_t names_line, std::size_t first_data_line);

} // namespace textio::advice
