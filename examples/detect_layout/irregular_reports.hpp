#pragma once

#include "terminal.hpp"
#include "textio/reading.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace detect_layout {

/// Tells on standard error which records of a file do not fit, and where. Records one after the
/// other with the same fault are told on one line, and what goes beyond a limit is counted.
class IrregularReports {
public:
    /// `progress` is a bar that is in the way of the lines; it must outlive this object.
    IrregularReports(std::string file, std::size_t limit, textio::reading::Policy policy,
                     const ProgressBar& progress);

    /// A record that does not fit, with `regular` records in all before it that do.
    void add(const textio::reading::Irregular& irregular, std::size_t regular);

    /// Something else that the record on line `line`, from 0, has of its own.
    void add_note(std::size_t line, std::string_view what);

    /// Tells what is left to tell, of so many records.
    void finish(std::size_t records);

    /// Whether anything was told.
    [[nodiscard]] bool is_something_irregular() const noexcept { return told_ + untold_ > 0; }

private:
    /// Records one after the other.
    struct Run {
        textio::reading::Irregular first;
        std::size_t last_line;
        std::size_t records;
        std::size_t regular; ///< records before it
    };

    void end_run();
    void tell(const std::string& text);
    [[nodiscard]] std::string description(const Run& run) const;

    std::string file_;
    std::size_t limit_;
    textio::reading::Policy policy_;
    const ProgressBar& progress_;
    std::optional<Run> run_;
    std::size_t irregular_ = 0; ///< records
    std::size_t told_ = 0;
    std::size_t untold_ = 0;
};

} // namespace detect_layout
