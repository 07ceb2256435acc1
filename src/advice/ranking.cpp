#include "advice/ranking.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// The score that a reading is compared with where no other shows a table at all.
constexpr double no_rival = 0.06;

/// A rival below this share of the best score is not proposed, unless it is the only one.
constexpr double least_share_of_best = 1.0 / 3;

/// Likewise one with the same layout and delimiter, which is no rival but the same answer with
/// other columns.
constexpr double least_share_of_same_layout = 0.8;

/// Whether two readings are the same to a person: only the better one is proposed.
bool are_alike(const Reading& one, const Reading& other) {
    return one.mode == other.mode && one.delimiter == other.delimiter &&
           one.columns == other.columns;
}

/// Whether a reading is good enough to be proposed beside the best one.
bool can_be_proposed(const Reading& reading, const Reading& best) {
    const bool is_same_layout = reading.mode == best.mode && reading.delimiter == best.delimiter;
    return reading.score >=
           (is_same_layout ? least_share_of_same_layout : least_share_of_best) * best.score;
}

/// The best score over the best one that cuts the rows otherwise.
double confidence_of(const std::vector<Reading>& readings) {
    const Reading& best = readings.front();
    double rival = no_rival;
    for (const Reading& reading : readings) {
        const bool cuts_alike =
            (reading.mode == best.mode && reading.delimiter == best.delimiter) ||
            (!reading.is_delimited() && !best.is_delimited() && reading.columns == best.columns);
        if (!cuts_alike) {
            rival = std::max(rival, reading.score);
        }
    }
    return std::max(1.0, best.score / rival);
}

} // namespace

Advice rank(std::vector<Reading> readings, const ProposalSources& sources) {
    std::stable_sort(
        readings.begin(), readings.end(),
        [](const Reading& left, const Reading& right) { return left.score > right.score; });
    const Reading& best = readings.front();
    Advice advice;
    advice.confidence = confidence_of(readings);
    advice.is_table = !best.is_line_by_line() && best.columns > 1;
    std::vector<const Reading*> proposed;
    for (const Reading& reading : readings) {
        const bool is_rival =
            can_be_proposed(reading, best) && proposed.size() < sources.settings->proposal_limit &&
            std::none_of(proposed.begin(), proposed.end(),
                         [&](const Reading* other) { return are_alike(reading, *other); });
        if (proposed.empty() || is_rival) {
            proposed.push_back(&reading);
            advice.proposals.push_back(make_proposal(reading, sources));
        }
    }
    return advice;
}

} // namespace textio::advice
