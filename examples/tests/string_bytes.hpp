#pragma once

#include "bytes.hpp"

#include <string>
#include <utility>

namespace detect_layout {

/// The bytes of a string.
class StringBytes : public ByteSource {
public:
    explicit StringBytes(std::string bytes) : bytes_(std::move(bytes)) {}

    std::size_t read(char* begin, std::size_t size) override {
        const std::size_t count = bytes_.copy(begin, size, place_);
        place_ += count;
        return count;
    }

private:
    std::string bytes_;
    std::size_t place_ = 0;
};

} // namespace detect_layout
