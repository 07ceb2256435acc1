#include "binary_data.hpp"

#include <magic.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

namespace detect_layout {

namespace {

/// How often each control character occurs that is neither usual in texts nor a line ending.
struct ControlCharacters {
    std::size_t zeros = 0;
    std::size_t others = 0;
    std::size_t kinds = 0; ///< of the others
};

ControlCharacters count_controls(std::string_view head) {
    // Escape introduces other sets of characters, 0x1A ended files once.
    constexpr std::string_view usual = "\t\n\v\f\r\x1A\x1B";
    std::array<std::size_t, 0x20> counts{};
    for (const char character : head) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < counts.size()) {
            ++counts[byte];
        }
    }
    ControlCharacters controls{.zeros = counts[0]};
    for (std::size_t i = 1; i < counts.size(); ++i) {
        if (counts[i] > 0 && usual.find(static_cast<char>(i)) == std::string_view::npos) {
            controls.others += counts[i];
            ++controls.kinds;
        }
    }
    return controls;
}

/// One or two control characters can be delimiters. Text has no use for many of them.
bool is_beyond_text(const ControlCharacters& controls, std::size_t bytes) {
    const bool is_wild = controls.kinds > 4 && 50 * controls.others > bytes;
    return is_wild || 4 * controls.zeros > 3 * bytes;
}

struct MagicCloser {
    void operator()(magic_t magic) const { magic_close(magic); }
};

/// What libmagic says; nothing if it has no data to go by.
std::string described(std::string_view head, int what) {
    const std::unique_ptr<magic_set, MagicCloser> magic(magic_open(what));
    if (!magic || magic_load(magic.get(), nullptr) != 0) {
        return {};
    }
    const char* answer = magic_buffer(magic.get(), head.data(), head.size());
    return answer != nullptr ? answer : "";
}

/// Whether libmagic knows a format in which that type of content is no text.
bool is_known_format(std::string_view type) {
    constexpr std::array<std::string_view, 5> binary{"application/", "image/", "audio/", "video/",
                                                     "font/"};
    constexpr std::array<std::string_view, 3> unknown{"application/octet-stream",
                                                      "application/json", "application/csv"};
    return std::any_of(binary.begin(), binary.end(),
                       [type](auto start) { return type.starts_with(start); }) &&
           std::find(unknown.begin(), unknown.end(), type) == unknown.end();
}

} // namespace

std::string binary_kind(std::string_view head) {
    const ControlCharacters controls = count_controls(head);
    if (controls.zeros + controls.others == 0) {
        return {};
    }
    if (is_known_format(described(head, MAGIC_MIME_TYPE))) {
        return described(head, MAGIC_NONE);
    }
    return is_beyond_text(controls, head.size()) ? "binary data" : "";
}

} // namespace detect_layout
