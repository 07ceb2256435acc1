/// \file
/// A source of bytes for the C interface.
#pragma once

#include "textio/c.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace test {

/// Delivers a text in pieces, and fails where it is told to.
struct Pieces {
    std::string_view rest;
    std::size_t piece;
    std::size_t failing = SIZE_MAX; ///< calls until one fails
    std::size_t delivered = 0;

    static size_t read(void* context, char* buffer, size_t size) {
        auto& self = *static_cast<Pieces*>(context);
        if (self.failing == 0) {
            self.failing = SIZE_MAX;
            return TEXTIO_READ_FAILED;
        }
        --self.failing;
        const size_t count = std::min({self.rest.size(), self.piece, size});
        std::copy_n(self.rest.begin(), count, buffer);
        self.rest.remove_prefix(count);
        self.delivered += count;
        return count;
    }
};

} // namespace test
