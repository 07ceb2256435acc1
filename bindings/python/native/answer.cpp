#include "answer.hpp"

#include <cstddef>
#include <new>
#include <stdexcept>

namespace binding {

namespace {

std::unique_ptr<textio_hints, Free> hints_of(const std::vector<Hint>& hints) {
    std::unique_ptr<textio_hints, Free> result(textio_hints_new());
    if (!result) {
        throw std::bad_alloc();
    }
    for (const auto& [name, values] : hints) {
        if (values.size() == 1) {
            check(textio_hints_set_sized(result.get(), name.c_str(), values[0].data(),
                                         values[0].size()));
            continue;
        }
        for (const std::string& value : values) {
            check(textio_hints_add(result.get(), name.c_str(), value.c_str()));
        }
    }
    return result;
}

} // namespace

void check(textio_status status) {
    switch (status) {
    case TEXTIO_OK:
        return;
    case TEXTIO_NO_MEMORY:
        throw std::bad_alloc();
    case TEXTIO_BAD_ARGUMENT:
    case TEXTIO_UNKNOWN_NAME:
    case TEXTIO_BAD_VALUE:
        throw std::invalid_argument(textio_last_error());
    default:
        throw std::runtime_error(textio_last_error());
    }
}

Answer::Answer(std::string_view bytes, const std::vector<Hint>& hints) {
    const auto known = hints_of(hints);
    textio_layout* layout = nullptr;
    check(textio_detect_utf8(bytes.data(), bytes.size(), known.get(), &layout));
    layout_.reset(layout);
}

std::string Answer::json() const {
    std::size_t length = 0;
    const char* text = textio_layout_json(layout_.get(), &length);
    return {text, length};
}

} // namespace binding
