#pragma once

#include <span>
#include <string>
#include <string_view>

namespace detect_layout {

/// Exit statuses, the same for all commands.
constexpr int all_went_well = 0;
constexpr int something_is_irregular = 1;
constexpr int something_went_wrong = 2;

/// What the program does if the first word of the command line is its name.
struct Subcommand {
    std::string_view name;
    std::string_view what; ///< it does, for the help

    /// Does it, and gives the exit status. The first argument is the name. What it throws is told
    /// to the user as an error.
    int (*run)(int count, const char* const* arguments);
};

[[nodiscard]] std::span<const Subcommand> subcommands() noexcept;

/// The subcommand that the command line asks for; null if its first word is none.
[[nodiscard]] const Subcommand* subcommand_of(int count, const char* const* arguments) noexcept;

/// A line for each of them, for the help.
[[nodiscard]] std::string list_subcommands();

} // namespace detect_layout
