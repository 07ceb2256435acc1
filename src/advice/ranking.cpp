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

/// Whether two readings cut the rows at the same places.
bool have_one_layout(const Reading& one, const Reading& other) {
    return one.mode == other.mode && one.delimiter == other.delimiter;
}

/// Whether two readings are the same to a person: only the better one is proposed.
bool are_alike(const Reading& one, const Reading& other) {
    return have_one_layout(one, other) && one.columns == other.columns;
}

/// Whether a reading is good enough to be proposed beside the best one.
bool can_be_proposed(const Reading& reading, const Reading& best) {
    const double share =
        have_one_layout(reading, best) ? least_share_of_same_layout : least_share_of_best;
    return reading.score >= share * best.score;
}

/// Whether two readings give the same rows, be it by blanks or by positions.
bool cut_alike(const Reading& one, const Reading& other) {
    const bool have_delimiter = one.is_delimited() || other.is_delimited();
    return have_one_layout(one, other) || (!have_delimiter && one.columns == other.columns);
}

/// The best score over the best one that cuts the rows otherwise.
double confidence_of(const std::vector<Reading>& readings) {
    const Reading& best = readings.front();
    double rival = no_rival;
    for (const Reading& reading : readings) {
        if (!cut_alike(reading, best)) {
            rival = std::max(rival, reading.score);
        }
    }
    return std::max(1.0, best.score / rival);
}

/// The best reading, and those to be proposed beside it; of `readings`, which are sorted.
std::vector<const Reading*> proposed(const std::vector<Reading>& readings, std::size_t limit) {
    std::vector<const Reading*> found{&readings.front()};
    for (const Reading& reading : readings) {
        const bool is_known = std::any_of(found.begin(), found.end(), [&](const Reading* other) {
            return are_alike(reading, *other);
        });
        if (!is_known && found.size() < limit && can_be_proposed(reading, readings.front())) {
            found.push_back(&reading);
        }
    }
    return found;
}

} // namespace

Advice rank(std::vector<Reading> readings, const ProposalSources& sources) {
    std::stable_sort(readings.begin(), readings.end(), is_better);
    const Reading& best = readings.front();
    Advice advice;
    advice.confidence = confidence_of(readings);
    advice.is_table = !best.is_line_by_line() && best.columns > 1;
    for (const Reading* reading : proposed(readings, sources.settings->proposal_limit)) {
        advice.proposals.push_back(make_proposal(*reading, sources));
    }
    return advice;
}

} // namespace textio::advice
