#include "leave_out.hpp"

#include "answer.hpp"
#include "tally.hpp"
#include "textio/advice.hpp"

#include <algorithm>
#include <map>
#include <utility>

namespace accuracy {

namespace {

using textio::advice::Proposal;
using textio::enums::StrategyMode;

/// A reading's answer, and the terms of its score.
struct Graded {
    Answer answer;
    std::vector<textio::advice::Term> terms;

    /// One field a line keeps its prior, which is all that it has.
    [[nodiscard]] double score_without(std::string_view name) const {
        if (answer.kind == "line") {
            name = {};
        }
        double score = 1;
        for (const auto& term : terms) {
            score *= term.name == name ? 1 : term.value;
        }
        return score;
    }
};

/// Adds the proposals made under `settings`, but for those of layouts that are there already.
void add_proposals(const textio::Field& text, const textio::advice::Settings& settings,
                   std::vector<Graded>& readings) {
    const std::size_t known = readings.size();
    for (const Proposal& proposal : advise(text, sample_rows, settings).proposals) {
        Answer answer = answer_of(proposal);
        const bool is_there =
            std::any_of(readings.begin(), readings.begin() + static_cast<std::ptrdiff_t>(known),
                        [&](const Graded& other) {
                            return other.answer.kind == answer.kind &&
                                   other.answer.delimiter == answer.delimiter;
                        });
        if (!is_there) {
            readings.push_back({std::move(answer), proposal.terms});
        }
    }
}

std::vector<Graded> readings_of(const textio::Field& text) {
    textio::advice::Settings settings;
    settings.proposal_limit = settings.reading_limit;
    std::vector<Graded> readings;
    add_proposals(text, settings, readings);
    for (const StrategyMode layout : {StrategyMode::delimited, StrategyMode::space_aligned,
                                      StrategyMode::fixed_width, StrategyMode::line_reader}) {
        settings.layout = layout;
        add_proposals(text, settings, readings);
    }
    return readings;
}

} // namespace

void print_ranking_without_terms(const std::vector<LabelledText>& texts) {
    std::vector<std::string> names{"nothing"};
    std::map<std::string, std::map<std::string, Tally>> tallies; // by term, then by set
    for (const LabelledText& text : texts) {
        const std::vector<Graded> readings = readings_of(textio::Field(text.text));
        for (const auto& term : readings.front().terms) {
            if (std::find(names.begin(), names.end(), term.name) == names.end()) {
                names.emplace_back(term.name);
            }
        }
        for (const std::string& name : names) {
            const auto best = std::max_element(
                readings.begin(), readings.end(), [&](const Graded& left, const Graded& right) {
                    return left.score_without(name) < right.score_without(name);
                });
            tallies[name][text.label.at("set")].add(text.label, best->answer);
        }
    }
    Table table({"left out", "first: layout", "and columns", "hard: layout", "and columns"});
    for (const std::string& name : names) {
        auto& sets = tallies[name];
        table.add({name, percent(sets["first"].layout), percent(sets["first"].layout_and_columns),
                   percent(sets["hard"].layout), percent(sets["hard"].layout_and_columns)});
    }
    table.print();
}

} // namespace accuracy
