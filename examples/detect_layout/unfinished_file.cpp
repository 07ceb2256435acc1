#include "unfinished_file.hpp"

#include <unistd.h>

#include <atomic>
#include <csignal>

namespace detect_layout {

namespace {

std::string unfinished;
std::atomic<const char*> unfinished_path = nullptr;

/// The program ends as it would have without.
void remove_and_end(int signal) {
    if (const char* path = unfinished_path; path != nullptr) {
        unlink(path);
    }
    std::signal(signal, SIG_DFL);
    raise(signal);
}

} // namespace

void remember_unfinished_file(const std::string& path) {
    unfinished = path;
    unfinished_path = unfinished.c_str();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) {
            struct sigaction action {};
            action.sa_handler = remove_and_end;
            sigaction(signal, &action, nullptr);
        }
    }
}

void forget_unfinished_file() noexcept {
    unfinished_path = nullptr;
}

} // namespace detect_layout
