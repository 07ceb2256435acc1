#pragma once

#include "picture.hpp"

#include <cstddef>
#include <string_view>

namespace detect_layout {

/// How pictures on standard output are to look: in colour on a terminal that has
/// colours, unless `NO_COLOR` is set, and as wide as the terminal.
[[nodiscard]] PictureStyle standard_output_style(std::size_t data_rows);

/// A progress bar on standard error, or nothing at all where that is no
/// terminal on which it could move.
class ProgressBar {
public:
    explicit ProgressBar(bool is_wanted, std::size_t steps);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar() { clear(); }

    /// Shows that `done` of the steps are done and that `what` comes next.
    void show(std::size_t done, std::string_view what) const;

    /// Takes the bar away, so that something else can be printed.
    void clear() const;

private:
    bool is_shown_;
    std::size_t steps_;
};

} // namespace detect_layout
