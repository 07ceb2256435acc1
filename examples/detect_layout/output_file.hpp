#pragma once

#include "byte_buffer.hpp"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace detect_layout {

/// Where the output goes that an option names: to standard output for `-`, to what is no regular
/// file as it is, and otherwise to a new file. That one is written beside, and has its name only
/// once all of it is there; if the user breaks off or something fails, it never existed.
///
/// At most one such object is alive at a time.
class OutputFile {
public:
    /// Throws `std::runtime_error` if the output exists and is not to be replaced (`replaces`), or
    /// cannot be opened.
    OutputFile(const std::string& path, bool replaces);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    /// Writes `bytes` while the caller goes on, and leaves an empty buffer in its place. Throws
    /// `std::runtime_error` if this or something written before cannot be written.
    void write(ByteBuffer& bytes);

    /// Waits until all is written, and gives the file its name. Throws `std::runtime_error` if that
    /// fails.
    void finish();

private:
    void work();
    void write_now(std::string_view bytes);
    void stop_worker() noexcept;
    void give_name();

    std::string path_;
    std::string beside_; ///< the file that is written; empty where there is no other one
    bool replaces_;
    int descriptor_ = -1;

    std::mutex mutex_;
    std::condition_variable changed_;
    ByteBuffer waiting_;         ///< for the worker; empty if there is nothing to write
    bool is_over_ = false;       ///< nothing more will come
    std::exception_ptr failure_; ///< of the worker
    std::thread worker_;
};

} // namespace detect_layout
