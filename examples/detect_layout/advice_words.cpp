#include "advice_words.hpp"

#include "advised.hpp"
#include "detection.hpp"
#include "layout_names.hpp"
#include "textio/names.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace detect_layout {

namespace {

using textio::advice::Column;
using textio::advice::Proposal;
using textio::enums::StrategyMode;
using zentor::io::text::typedetection::FieldClass;

constexpr double sure = 3;
constexpr double probable = 1.5;

/// A factor above this takes nothing away that is worth a word.
constexpr double no_doubt = 0.995;

std::size_t count_of(const std::vector<Column>& columns, std::initializer_list<FieldClass> types) {
    return static_cast<std::size_t>(
        std::count_if(columns.begin(), columns.end(), [types](const Column& column) {
            return std::find(types.begin(), types.end(), column.type) != types.end();
        }));
}

std::string_view class_phrase(FieldClass type) {
    switch (type) {
    case FieldClass::datetime:
        return "date and time";
    case FieldClass::hex_number:
        return "hexadecimal number";
    case FieldClass::binary_number:
        return "binary number";
    case FieldClass::short_duration:
        return "duration";
    case FieldClass::delimiter_like:
        return "lone delimiter";
    default:
        return textio::name_of(type);
    }
}

/// How many rows are as the proposal has them, rounded down: nothing but all of them is 100 %.
std::string rows_phrase(const Proposal& proposal) {
    const auto share = [](std::size_t part, std::size_t all) {
        return fmt::format("{} % of rows", all == 0 ? 0 : 100 * part / all);
    };
    if (proposal.strategy->mode() == StrategyMode::fixed_width) {
        return share(proposal.regular_rows, proposal.rows) + " keep to the columns";
    }
    const auto& sample = *proposal.strategy->field_array();
    const auto rows = filled_lines(sample, 0);
    const auto columns = proposal.columns.size();
    const auto regular = std::count_if(rows.begin(), rows.end(), [&](std::size_t row) {
        return sample.line(row).size() == columns;
    });
    return share(static_cast<std::size_t>(regular), rows.size()) + " have " +
           counted(columns, "field");
}

/// `5 of 6 columns hold numbers, 1 text`.
std::string columns_by_kind(const std::vector<Column>& columns) {
    const auto numbers =
        count_of(columns, {FieldClass::number, FieldClass::hex_number, FieldClass::binary_number});
    const auto times = count_of(columns, {FieldClass::date, FieldClass::datetime,
                                          FieldClass::duration, FieldClass::short_duration});
    const auto texts = count_of(columns, {FieldClass::text, FieldClass::delimiter_like});
    const auto empty = count_of(columns, {FieldClass::unknown});
    std::vector<std::string> parts;
    for (const auto& [count, what] :
         {std::pair(numbers, "numbers"), std::pair(times, "dates or times"),
          std::pair(texts, "text"), std::pair(empty, "nothing")}) {
        if (count > 0) {
            const auto verb = parts.empty()
                                  ? fmt::format(" of {} {}", counted(columns.size(), "column"),
                                                count == 1 ? "holds" : "hold")
                                  : std::string();
            parts.push_back(fmt::format("{}{} {}", count, verb, what));
        }
    }
    return fmt::format("{}", fmt::join(parts, ", "));
}

} // namespace

bool is_doubtful(const textio::advice::Advice& advice) noexcept {
    return advice.confidence < probable;
}

std::string confidence_phrase(const textio::advice::Advice& advice) {
    if (advice.confidence >= sure) {
        return "sure";
    }
    if (!is_doubtful(advice)) {
        return "probable";
    }
    const Proposal* rival = rival_of_best(advice);
    if (rival == nullptr) {
        return "look at it";
    }
    return fmt::format("look at it: could also be {} with {}", layout_phrase(*rival->strategy),
                       counted(rival->columns.size(), "column"));
}

std::string column_phrase(const Column& column) {
    if (column.values == 0) {
        return "no values";
    }
    std::string phrase(class_phrase(column.type));
    if (column.missing > 0) {
        phrase += fmt::format(", {} of {} missing", column.missing, column.missing + column.values);
    }
    return phrase;
}

std::string mark_name(char16_t mark) {
    switch (mark) {
    case u'.':
        return "point";
    case u'\'':
    case u'\u2019':
        return "apostrophe";
    case u'_':
        return "underscore";
    default:
        return delimiter_name({&mark, 1});
    }
}

std::string evidence_phrase(const Proposal& proposal) {
    if (proposal.strategy->mode() == StrategyMode::line_reader) {
        return "each line is one field";
    }
    return fmt::format("{}, {}", rows_phrase(proposal), columns_by_kind(proposal.columns));
}

std::string doubts_phrase(const Proposal& proposal) {
    const auto mode = proposal.strategy->mode();
    std::vector<std::string> doubts;
    for (const auto& [name, value] : proposal.terms) {
        if (value < no_doubt) {
            doubts.push_back(fmt::format("{} ({:.2f})", textio::doubt_about(name, mode), value));
        }
    }
    return doubts.empty() ? "nothing" : fmt::format("{}", fmt::join(doubts, ", "));
}

} // namespace detect_layout
