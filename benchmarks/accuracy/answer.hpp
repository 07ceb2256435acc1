/// \file
/// What the two doors of the library answer, and whether it is what a label says.
#pragma once

#include "labelled_text.hpp"
#include "textio/advice.hpp"
#include "textio/field.hpp"
#include "textio/strategy.hpp"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace accuracy {

/// Rows of each text that are looked at, as in the example host.
inline constexpr std::size_t sample_rows = 250;

/// What is compared beside layout and columns, by the names that labels use.
inline constexpr std::array<const char*, 5> fact_names = {"first_data_line", "names_line",
                                                          "decimal", "thousands", "comment"};

/// The answer of one door. What it cannot know it does not say.
struct Answer {
    std::string kind;         ///< as labels call it
    nlohmann::json delimiter; ///< null where there is none
    std::size_t columns = 0;
    nlohmann::json facts; ///< some of `fact_names`; null says that there is none
    std::optional<double> confidence;
};

[[nodiscard]] std::shared_ptr<textio::GenericStrategy> pick(const textio::Field& text);

[[nodiscard]] Answer answer_of_pick(const textio::Field& text);
[[nodiscard]] Answer answer_of_advise(const textio::Field& text);
[[nodiscard]] Answer answer_of(const textio::advice::Proposal& proposal);

/// Whether the layout is one that the label accepts. Blanks may be called a delimiter or an
/// alignment; and one field a line is right for one column, whatever would separate it.
[[nodiscard]] bool has_right_layout(const Label& label, const Answer& answer);

/// Whether also the number of columns is the label's, if it tells one.
[[nodiscard]] bool has_right_columns(const Label& label, const Answer& answer);

/// Whether a fact of the answer is the label's. Nothing if either says nothing about it.
[[nodiscard]] std::optional<bool> has_right_fact(const Label& label, const Answer& answer,
                                                 const std::string& fact);

} // namespace accuracy
