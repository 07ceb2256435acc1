/// \file
/// Counting: shares of a whole, and what most of some values are.
#pragma once

#include <cstddef>

namespace textio::advice {

/// What something adds to a count of those that have a property.
constexpr std::size_t one_if(bool holds) {
    return holds ? 1 : 0;
}

/// The share that `part` is of `whole`; 0 of nothing.
constexpr double share_of(double part, double whole) {
    return whole == 0 ? 0 : part / whole;
}

constexpr double share_of(std::size_t part, std::size_t whole) {
    return share_of(static_cast<double>(part), static_cast<double>(whole));
}

/// Finds the value that more than half of some values are, while they pass by. Where there is no
/// such, it is any of them.
template <class Value>
class MajorityVote {
public:
    void add(Value value) {
        if (votes_ == 0) {
            value_ = value;
        }
        votes_ = value == value_ ? votes_ + 1 : votes_ - 1;
    }

    /// A default value if none was added.
    [[nodiscard]] Value value() const { return value_; }

private:
    Value value_{};
    std::size_t votes_ = 0;
};

} // namespace textio::advice
