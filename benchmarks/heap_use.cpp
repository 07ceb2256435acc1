#include "heap_use.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

namespace {

/// The size of each block stands in front of it, in as much room as keeps the block aligned.
constexpr std::size_t size_room = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

// The benchmarks run on one thread.
bench::HeapUse use{};

} // namespace

namespace bench {

HeapUse heap_use() noexcept {
    return use;
}

void restart_peak() noexcept {
    use.peak_bytes = use.held_bytes;
}

void keep_freed_memory() noexcept {
#if defined(__GLIBC__)
    constexpr int most_bytes = 1 << 30;
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, most_bytes);
#endif
}

} // namespace bench

void* operator new(std::size_t size) {
    auto* const block = static_cast<std::byte*>(std::malloc(size + size_room));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(block, &size, sizeof size);
    ++use.allocations;
    use.held_bytes += size;
    use.peak_bytes = std::max(use.peak_bytes, use.held_bytes);
    return block + size_room;
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr) {
        return;
    }
    std::byte* const block = static_cast<std::byte*>(memory) - size_room;
    std::size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    use.held_bytes -= size;
    std::free(block);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}
