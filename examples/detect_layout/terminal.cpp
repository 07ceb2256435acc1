#include "terminal.hpp"

#include "cell_text.hpp"
#include "unicode.hpp"

#include <fmt/format.h>

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace detect_layout {

namespace {

constexpr std::size_t default_width = 80;
constexpr std::size_t bar_width = 24;

std::size_t terminal_width(int descriptor) {
    winsize size{};
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col
                                                                        : default_width;
}

std::string_view value_of(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

/// Whether escape sequences do there what they should.
bool is_capable_terminal(int descriptor) {
    const auto kind = value_of("TERM");
    return isatty(descriptor) != 0 && !kind.empty() && kind != "dumb";
}

} // namespace

PictureStyle standard_output_style(std::size_t data_rows) {
    return {.colour = is_capable_terminal(STDOUT_FILENO) && value_of("NO_COLOR").empty(),
            .width = terminal_width(STDOUT_FILENO),
            .data_rows = data_rows};
}

ProgressBar::ProgressBar(bool is_wanted, std::size_t steps)
    : is_shown_(is_wanted && is_capable_terminal(STDERR_FILENO)), steps_(steps) {}

void ProgressBar::show(std::size_t done, std::string_view what) const {
    if (!is_shown_) {
        return;
    }
    const std::size_t filled = bar_width * done / steps_;
    const std::string counts = fmt::format(" {}/{} ", done, steps_);
    const std::size_t taken = bar_width + 2 + counts.size() + 1;
    const std::size_t width = terminal_width(STDERR_FILENO);
    const auto name = printable(to_utf16(what), width > taken ? width - taken : 0);
    const std::string bar = fmt::format("\r\x1b[K[{:=<{}}{:{}}]{}{}", "", filled, "",
                                        bar_width - filled, counts, name.utf8);
    std::fputs(bar.c_str(), stderr);
}

void ProgressBar::clear() const {
    if (is_shown_) {
        std::fputs("\r\x1b[K", stderr);
    }
}

} // namespace detect_layout
