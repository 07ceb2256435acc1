#include "bytes.hpp"

#include "user_error.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <cerrno>
#include <new>
#include <system_error>

namespace detect_layout {

namespace {

[[noreturn]] void fail(int error) {
    const std::error_code reason(error, std::generic_category());
    if (reason == std::errc::no_such_file_or_directory) {
        throw UserError("no such file");
    }
    if (reason == std::errc::is_a_directory) {
        throw UserError("is a directory (--recursive walks it)");
    }
    throw UserError(reason == std::errc::bad_file_descriptor ? "is closed" : reason.message());
}

/// A file or standard input. Bytes that do not begin as gzip's do are passed on as they are.
class FileBytes : public ByteSource {
public:
    explicit FileBytes(const std::string& path) {
        const int descriptor =
            path == "-" ? dup(STDIN_FILENO) : open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (descriptor == -1) {
            fail(errno);
        }
        file_.reset(gzdopen(descriptor, "rb"));
        if (!file_) {
            close(descriptor);
            throw std::bad_alloc();
        }
        gzbuffer(file_.get(), buffer_bytes);
        struct stat status {};
        if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
            total_ = static_cast<std::size_t>(status.st_size);
        }
    }

    std::size_t read(char* begin, std::size_t size) override {
        errno = 0;
        const std::size_t count = gzfread(begin, 1, size, file_.get());
        int error = Z_OK;
        gzerror(file_.get(), &error);
        switch (error) {
        case Z_OK:
            return count;
        case Z_ERRNO:
            fail(errno);
        case Z_BUF_ERROR:
            throw UserError("ends in the middle of its compressed data");
        case Z_MEM_ERROR:
            throw std::bad_alloc();
        default:
            throw UserError("has damaged compressed data");
        }
    }

    [[nodiscard]] bool is_unpacked() const noexcept override { return gzdirect(file_.get()) == 0; }

    [[nodiscard]] std::size_t total() const noexcept override { return total_; }

    [[nodiscard]] std::size_t place() const noexcept override {
        const auto offset = gzoffset(file_.get());
        return offset < 0 ? 0 : static_cast<std::size_t>(offset);
    }

private:
    static constexpr unsigned buffer_bytes = 65536;

    struct Closer {
        void operator()(gzFile file) const { gzclose(file); }
    };
    std::unique_ptr<gzFile_s, Closer> file_;
    std::size_t total_ = 0;
};

} // namespace

std::unique_ptr<ByteSource> open_bytes(const std::string& path) {
    return std::make_unique<FileBytes>(path);
}

} // namespace detect_layout
