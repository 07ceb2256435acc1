#include "detection/blank_columns.hpp"

#include "detection/line_sample.hpp"

namespace textio::detection {

void BlankColumns::add_line(const Field& text, std::size_t length) {
    if (length > blank_.size()) {
        extend(length);
    }
    for (std::size_t position = 0; position < text.size; ++position) {
        if (blank_[position] != 0 && text.data[position] != blank) {
            lose_blank(position);
        }
    }
}

void BlankColumns::extend(std::size_t length) {
    const bool joins_last_run = !blank_.empty() && blank_.back() == 0;
    runs_ += joins_last_run ? 0U : 1U;
    blank_.resize(length, 0);
}

/// A position without blank is a run of its own, joins the run beside it, or joins two to one.
void BlankColumns::lose_blank(std::size_t position) {
    blank_[position] = 0;
    const bool joins_left = position > 0 && blank_[position - 1] == 0;
    const bool joins_right = position + 1 < blank_.size() && blank_[position + 1] == 0;
    if (joins_left && joins_right) {
        --runs_;
    } else if (!joins_left && !joins_right) {
        ++runs_;
    }
}

std::vector<std::size_t> BlankColumns::widths() const {
    std::vector<std::size_t> widths;
    std::size_t start = 0;
    for (std::size_t position = 1; position < blank_.size(); ++position) {
        if (blank_[position - 1] == 0 && blank_[position] == 1) {
            widths.push_back(position - start);
            start = position;
        }
    }
    if (blank_.size() > start) {
        widths.push_back(blank_.size() - start);
    }
    return widths;
}

} // namespace textio::detection
