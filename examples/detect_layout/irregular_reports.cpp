#include "irregular_reports.hpp"

#include "layout_names.hpp"
#include "output.hpp"

#include <fmt/format.h>

#include <utility>

namespace detect_layout {

namespace {

using textio::reading::Fault;
using textio::reading::Irregular;
using textio::reading::Policy;

/// From so many records in a row on, it is hardly chance that none fits.
constexpr std::size_t many = 20;

std::string_view consequence(Policy policy, Fault fault) {
    switch (policy) {
    case Policy::skip:
        return "left out";
    case Policy::stop:
        return "the end of the conversion";
    case Policy::pad:
        return fault == Fault::too_few_fields ? "filled up with empty ones" : "all are written";
    case Policy::keep:
        break;
    }
    return "written as they are";
}

} // namespace

IrregularReports::IrregularReports(std::string file, std::size_t limit, Policy policy,
                                   const ProgressBar& progress)
    : file_(std::move(file)), limit_(limit), policy_(policy), progress_(progress) {}

void IrregularReports::add(const Irregular& irregular, std::size_t regular) {
    ++irregular_;
    if (run_ && run_->regular == regular && run_->first.fault == irregular.fault &&
        run_->first.found == irregular.found) {
        ++run_->records;
        run_->last_line = irregular.line;
        return;
    }
    end_run();
    run_ = Run{irregular, irregular.line, 1, regular};
}

void IrregularReports::add_note(std::size_t line, std::string_view what) {
    end_run();
    tell(fmt::format("line {}: {}", line + 1, what));
}

void IrregularReports::end_run() {
    if (run_) {
        tell(description(*run_));
        run_.reset();
    }
}

std::string IrregularReports::description(const Run& run) const {
    const auto& [fault, line, expected, found] = run.first;
    if (fault == Fault::open_quote) {
        return fmt::format("line {}: a quote is opened that nothing closes", line + 1);
    }
    const std::string fields = fmt::format("{} instead of {}, {}", counted(found, "field"),
                                           expected, consequence(policy_, fault));
    if (run.records == 1) {
        return fmt::format("line {}: {}", line + 1, fields);
    }
    return fmt::format("lines {} to {}: {} records with {}{}", line + 1, run.last_line + 1,
                       run.records, fields,
                       run.records >= many ? "; the layout seems to change there" : "");
}

void IrregularReports::tell(const std::string& text) {
    if (told_ == limit_) {
        ++untold_;
        return;
    }
    ++told_;
    progress_.clear();
    complain(fmt::format("{}: {}", file_, text));
}

void IrregularReports::finish(std::size_t records) {
    end_run();
    if (untold_ > 0) {
        complain(fmt::format("{}: {} more like that", file_, counted(untold_, "line")));
    }
    if (irregular_ > 1 || untold_ > 0) {
        complain(
            fmt::format("{}: {} of {} do not fit", file_, irregular_, counted(records, "record")));
    }
}

} // namespace detect_layout
