#include "subcommands.hpp"

#include "convert_command.hpp"
#include "diff_command.hpp"
#include "import_command.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace detect_layout {

std::span<const Subcommand> subcommands() noexcept {
    static constexpr std::array<Subcommand, 3> all{{
        {"convert", "writes the table of a file in a plain format", run_convert},
        {"diff", "tells whether two files are laid out alike", run_diff},
        {"import", "prints the statement that reads a file in a tool", run_import},
    }};
    return all;
}

const Subcommand* subcommand_of(int count, const char* const* arguments) noexcept {
    if (count < 2) {
        return nullptr;
    }
    const auto all = subcommands();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Subcommand& subcommand) {
        return subcommand.name == arguments[1];
    });
    return found == all.end() ? nullptr : &*found;
}

std::string list_subcommands() {
    std::string text;
    for (const Subcommand& subcommand : subcommands()) {
        text += fmt::format("  {:<8} {}\n", subcommand.name, subcommand.what);
    }
    return text;
}

} // namespace detect_layout
