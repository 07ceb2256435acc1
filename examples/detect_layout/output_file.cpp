#include "output_file.hpp"

#include "unfinished_file.hpp"

#include <fmt/format.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace detect_layout {

namespace {

[[noreturn]] void fail(const std::string& path, std::string_view what, int error) {
    const std::error_code reason(error, std::generic_category());
    if (path == "-") {
        throw std::runtime_error(
            reason == std::errc::bad_file_descriptor
                ? "standard output is closed"
                : fmt::format("cannot write to standard output: {}", reason.message()));
    }
    throw std::runtime_error(fmt::format("{}: {}: {}", path, what, reason.message()));
}

[[noreturn]] void refuse_existing(const std::string& path) {
    throw std::runtime_error(fmt::format("{}: exists; --force replaces it", path));
}

/// What a new file may be done with.
mode_t usual_mode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

/// The file itself, where `path` is a link to it.
std::string resolved(const std::string& path) {
    std::error_code error;
    const auto file = std::filesystem::canonical(path, error);
    return error ? path : file.native();
}

} // namespace

OutputFile::OutputFile(const std::string& path, bool replaces) : path_(path), replaces_(replaces) {
    if (path == "-") {
        descriptor_ = STDOUT_FILENO;
        return;
    }
    struct stat status {};
    const bool exists = stat(path.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        descriptor_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
        if (descriptor_ == -1) {
            fail(path_, "cannot be opened", errno);
        }
        return;
    }
    if (exists && !replaces) {
        refuse_existing(path);
    }
    path_ = exists ? resolved(path) : path;
    beside_ = path_ + ".XXXXXX";
    descriptor_ = mkostemp(beside_.data(), O_CLOEXEC);
    if (descriptor_ == -1) {
        beside_.clear();
        fail(path_, "cannot be created", errno);
    }
    remember_unfinished_file(beside_);
    fchmod(descriptor_, exists ? status.st_mode & 07777U : usual_mode());
}

OutputFile::~OutputFile() {
    stop_worker();
    if (descriptor_ != -1 && path_ != "-") {
        close(descriptor_);
    }
    if (!beside_.empty()) {
        unlink(beside_.c_str());
        forget_unfinished_file();
    }
}

void OutputFile::write(ByteBuffer& bytes) {
    if (!worker_.joinable()) {
        worker_ = std::thread([this] { work(); });
    }
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.size() == 0 || failure_; });
    if (failure_) {
        std::rethrow_exception(failure_);
    }
    std::swap(waiting_, bytes);
    bytes.clear();
    changed_.notify_all();
}

/// Writes what is waiting, until nothing more will come.
void OutputFile::work() {
    ByteBuffer bytes;
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return waiting_.size() > 0 || is_over_; });
        if (waiting_.size() == 0) {
            return;
        }
        std::swap(waiting_, bytes);
        waiting_.clear();
        changed_.notify_all();
        lock.unlock();
        std::exception_ptr failure;
        try {
            write_now(bytes.view());
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        if (failure) {
            failure_ = failure;
            changed_.notify_all();
            return;
        }
    }
}

void OutputFile::write_now(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
        if (count == -1 && errno != EINTR) {
            fail(path_, "cannot be written", errno);
        }
        bytes.remove_prefix(count == -1 ? 0 : static_cast<std::size_t>(count));
    }
}

void OutputFile::stop_worker() noexcept {
    if (worker_.joinable()) {
        {
            const std::lock_guard lock(mutex_);
            is_over_ = true;
        }
        changed_.notify_all();
        worker_.join();
    }
}

void OutputFile::finish() {
    stop_worker();
    if (failure_) {
        std::rethrow_exception(failure_);
    }
    if (path_ == "-") {
        return;
    }
    // Some file systems tell only now that they are full.
    if (close(std::exchange(descriptor_, -1)) != 0) {
        fail(path_, "cannot be written", errno);
    }
    if (!beside_.empty()) {
        give_name();
    }
}

void OutputFile::give_name() {
    if (!replaces_ && link(beside_.c_str(), path_.c_str()) == 0) {
        return; // the other name goes with this object
    }
    if (!replaces_ && errno == EEXIST) {
        refuse_existing(path_);
    }
    if (rename(beside_.c_str(), path_.c_str()) != 0) {
        fail(path_, "cannot be created", errno);
    }
    beside_.clear();
    forget_unfinished_file();
}

} // namespace detect_layout
