#pragma once

namespace detect_layout {

/// Whether an ideograph is one of the few hundred that make up half of every Japanese or Chinese
/// text, or is usual in the names of columns.
[[nodiscard]] bool is_common_ideograph(char16_t unit) noexcept;

} // namespace detect_layout
