#include "reliability/memory.hpp"

#include <algorithm>
#include <cstdlib>

using namespace test;

// Inlined, they would look like mismatched pairs of calls to the compiler.
[[gnu::noinline]] void* operator new(std::size_t size) {
    const bool is_due = allocations_until_failure == 0;
    const bool fails = is_due || size > largest_block;
    if (is_due) {
        allocations_until_failure = never;
    } else if (allocations_until_failure != never) {
        --allocations_until_failure;
    }
    void* const block = fails ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++blocks_in_use;
    ++blocks_made;
    bytes_made += size;
    return block;
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    blocks_in_use -= block == nullptr ? 0 : 1;
    std::free(block);
}

// All forms, as a sanitizer has forms of its own that would not call these.
void* operator new[](std::size_t size) {
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

void operator delete[](void* block) noexcept {
    operator delete(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}
