#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace detect_layout {

/// In which order a date has its parts.
enum class DateOrder : std::uint8_t { year_month_day, day_month_year, month_day_year };

/// The order in which all of `dates` have their parts, each perhaps with a time of day behind it.
/// Nothing if there are no dates, if one of them is written otherwise, or if another order would do
/// as well. A year has four digits; a month may be an English word.
[[nodiscard]] std::optional<DateOrder> order_of(const std::vector<std::string>& dates);

/// The date `text` as in `2024-06-10` or `2024-06-10T12:30:00`, put into `buffer`; nothing if it is
/// no date in that order.
[[nodiscard]] std::string_view iso_date(std::string_view text, DateOrder order,
                                        std::string& buffer);

} // namespace detect_layout
