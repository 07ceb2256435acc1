#include "tally.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace accuracy {

namespace {

const std::string& group_of(double confidence) {
    constexpr std::array bounds = {3.0, 1.5, 1.2};
    std::size_t group = 0;
    while (group < bounds.size() && confidence < bounds[group]) {
        ++group;
    }
    return confidence_groups()[group];
}

} // namespace

const std::vector<std::string>& confidence_groups() {
    static const std::vector<std::string> groups = {"3 and more", "1.5 to 3", "1.2 to 1.5",
                                                    "below 1.2"};
    return groups;
}

void Tally::add(const Label& label, const Answer& answer) {
    const bool is_right = has_right_layout(label, answer);
    layout.add(is_right);
    layout_and_columns.add(is_right && has_right_columns(label, answer));
    if (answer.confidence) {
        confidences[group_of(*answer.confidence)].add(is_right);
    }
    if (!is_right) {
        return;
    }
    for (const std::string fact : fact_names) {
        if (const auto is_right_fact = has_right_fact(label, answer, fact)) {
            facts[fact].add(*is_right_fact);
        }
    }
}

std::string percent(const Share& share) {
    return share.all == 0 ? "-"
                          : fmt::format("{:.1f}", 100 * static_cast<double>(share.right) /
                                                      static_cast<double>(share.all));
}

std::string shown(const Share& share) {
    return share.all == 0 ? "-"
                          : fmt::format("{} % ({} of {})", percent(share), share.right, share.all);
}

Table::Table(std::vector<std::string> heading) {
    rows_.push_back(std::move(heading));
    rows_.emplace_back(rows_.front().size(), "---");
}

void Table::add(std::vector<std::string> row) {
    rows_.push_back(std::move(row));
}

void Table::print() const {
    for (const auto& row : rows_) {
        fmt::print("| {} |\n", fmt::join(row, " | "));
    }
    fmt::print("\n");
}

} // namespace accuracy
