#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace detect_layout {

/// How much a decoded text looks like words: the logarithm of a probability, so that less than 0 is
/// normal, and only differences between readings of the same bytes tell anything.
struct Reading {
    double total;
    double average; ///< for each byte beyond ASCII
};

/// The letters beyond ASCII of some languages that one alphabet serves, the most common ones first.
using Languages = std::span<const std::u16string_view>;

/// Reads `text` as that of the `languages` that suits best; there must be one.
[[nodiscard]] Reading read_as_languages(std::u16string_view text, Languages languages);

/// Reads `text` as Chinese, Japanese or Korean, of whose ideographs `rare_ideographs` are rare.
/// `confidence`, 0 to 1, is how sure somebody else is of it.
[[nodiscard]] Reading read_as_east_asian(std::u16string_view text, std::size_t rare_ideographs,
                                         double confidence);

} // namespace detect_layout
