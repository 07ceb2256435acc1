#include "textio/advice.hpp"

namespace textio::advice {

std::u16string column_name(const Column& column, char16_t quote) {
    if (quote == 0) {
        return std::u16string(column.name);
    }
    std::u16string name;
    name.reserve(column.name.size());
    bool is_second = false;
    for (const char16_t unit : column.name) {
        is_second = !is_second && unit == quote && name.ends_with(quote);
        if (!is_second) {
            name += unit;
        }
    }
    return name;
}

} // namespace textio::advice
