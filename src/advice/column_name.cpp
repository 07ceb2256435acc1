#include "textio/advice.hpp"

namespace textio::advice {

std::u16string column_name(const Column& column, char16_t quote) {
    std::u16string name;
    name.reserve(column.name.size());
    bool is_second = false;
    for (const char16_t unit : column.name) {
        is_second = !is_second && unit == quote && !name.empty() && name.back() == quote;
        if (!is_second || quote == 0) {
            name += unit;
        }
    }
    return name;
}

} // namespace textio::advice
