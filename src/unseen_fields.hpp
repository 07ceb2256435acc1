/// \file
/// An end for millions of fields without a look at them.
#pragma once

#include "textio/field.hpp"

#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace textio {

/// Frees the memory of `fields` without a look at them. The vector itself would call the destructor
/// of each, which is virtual and does nothing, and fetch millions of fields for it. So it is moved
/// to where no destructor waits for it.
inline void free_without_a_look(std::vector<Field>& fields) noexcept {
    using Fields = std::vector<Field>;
    static_assert(std::is_same_v<Fields::allocator_type, std::allocator<Field>>);
    alignas(Fields) std::array<std::byte, sizeof(Fields)> room{};
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): what is made here takes no memory.
    auto* const taken = ::new (room.data()) Fields(std::move(fields));
    if (taken->capacity() > 0) {
        std::allocator<Field>().deallocate(taken->data(), taken->capacity());
    }
}

} // namespace textio
