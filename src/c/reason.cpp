#include "c/layout.hpp"
#include "textio/names.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <utility>

namespace textio::c {

using advice::Column;
using advice::Proposal;
using advice::Term;
using enums::StrategyMode;
using zentor::io::text::typedetection::FieldClass;

namespace {

/// A factor above this takes nothing away that is worth a word.
constexpr double no_doubt = 0.995;

/// More reasons than these are no help.
constexpr std::size_t most_doubts = 3;

std::string counted(std::size_t count, const char* noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string rows_phrase(const Proposal& proposal) {
    const std::string share =
        std::to_string(proposal.regular_rows) + " of " + counted(proposal.rows, "row");
    if (proposal.strategy->mode() == StrategyMode::fixed_width) {
        return share + " keep to the columns";
    }
    return share + " have " + counted(proposal.columns.size(), "field");
}

/// `; 3 columns hold numbers, 1 text`.
std::string columns_phrase(const std::vector<Column>& columns) {
    const auto count_of = [&columns](std::initializer_list<FieldClass> types) {
        return std::count_if(columns.begin(), columns.end(), [types](const Column& column) {
            return std::find(types.begin(), types.end(), column.type) != types.end();
        });
    };
    const std::array<std::pair<std::ptrdiff_t, const char*>, 4> kinds{{
        {count_of({FieldClass::number, FieldClass::hex_number, FieldClass::binary_number}),
         "numbers"},
        {count_of({FieldClass::date, FieldClass::datetime, FieldClass::duration,
                   FieldClass::short_duration}),
         "dates or times"},
        {count_of({FieldClass::text, FieldClass::delimiter_like}), "text"},
        {count_of({FieldClass::unknown}), "nothing"},
    }};
    std::string phrase;
    for (const auto& [count, what] : kinds) {
        if (count > 0 && phrase.empty()) {
            phrase = "; " + counted(static_cast<std::size_t>(count), "column") +
                     (count == 1 ? " holds " : " hold ") + what;
        } else if (count > 0) {
            phrase += ", " + std::to_string(count) + ' ' + what;
        }
    }
    return phrase;
}

/// In percent, rounded down: a factor that takes something away is never 100 %.
std::string percent(double factor) {
    return std::to_string(static_cast<int>(factor * 100)) + " %";
}

/// The factors that lower the score most: `; against it: few rows (83 %)`.
std::string doubts_phrase(const Proposal& proposal) {
    std::vector<Term> doubts;
    std::copy_if(proposal.terms.begin(), proposal.terms.end(), std::back_inserter(doubts),
                 [](const Term& term) { return term.value < no_doubt; });
    std::stable_sort(doubts.begin(), doubts.end(),
                     [](const Term& left, const Term& right) { return left.value < right.value; });
    doubts.resize(std::min(doubts.size(), most_doubts));
    std::string phrase;
    for (const Term& term : doubts) {
        phrase += phrase.empty() ? "; against it: " : ", ";
        phrase += doubt_about(term.name, proposal.strategy->mode());
        phrase += " (" + percent(term.value) + ')';
    }
    return phrase;
}

} // namespace

std::string reason_for(const Proposal& proposal) {
    const std::string seen = proposal.strategy->mode() == StrategyMode::line_reader
                                 ? "each line is one field"
                                 : rows_phrase(proposal) + columns_phrase(proposal.columns);
    return seen + doubts_phrase(proposal);
}

} // namespace textio::c
