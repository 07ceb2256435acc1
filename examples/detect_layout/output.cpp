#include "output.hpp"

#include "cell_text.hpp"

#include <fmt/format.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <system_error>

namespace detect_layout {

void hold_standard_streams() {
    // Opened the wrong way round: a write to what is open for reading fails, and vice versa.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1 && errno == EBADF) {
            static_cast<void>(open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
        }
    }
}

void write_out(std::string_view text) {
    // What is not flushed is lost if the user breaks off.
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() ||
        std::fflush(stdout) != 0) {
        const std::error_code reason(errno, std::generic_category());
        throw std::runtime_error(
            reason == std::errc::bad_file_descriptor
                ? "standard output is closed"
                : fmt::format("cannot write to standard output: {}", reason.message()));
    }
}

void complain(std::string_view what) noexcept {
    try {
        const std::string line = fmt::format("detect_layout: {}\n", one_line(what));
        std::fwrite(line.data(), 1, line.size(), stderr);
    } catch (const std::exception&) {
        std::fputs("detect_layout: out of memory\n", stderr);
    }
}

} // namespace detect_layout
