/// \file
/// Counts of what was right, and the tables that show them.
#pragma once

#include "answer.hpp"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace accuracy {

/// So many right, of so many.
struct Share {
    std::size_t right = 0;
    std::size_t all = 0;

    void add(bool is_right) {
        right += is_right ? 1U : 0U;
        ++all;
    }
};

/// What one door got right in some files.
struct Tally {
    Share layout;
    Share layout_and_columns;
    std::map<std::string, Share> facts;       ///< of the files whose layout is right
    std::map<std::string, Share> confidences; ///< layouts, by groups of confidence

    void add(const Label& label, const Answer& answer);
};

/// The groups of confidence, highest first.
[[nodiscard]] const std::vector<std::string>& confidence_groups();

/// As `96.4 % (293 of 304)`; a dash where nothing was counted.
[[nodiscard]] std::string shown(const Share& share);

/// As `96.4`, in percent.
[[nodiscard]] std::string percent(const Share& share);

/// A table in Markdown.
class Table {
public:
    explicit Table(std::vector<std::string> heading);

    void add(std::vector<std::string> row);
    void print() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

} // namespace accuracy
