#include "advised.hpp"

#include "detection.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace detect_layout {

namespace {

using textio::advice::Advice;
using textio::advice::Proposal;
using textio::enums::StrategyMode;

bool are_rivals(const Proposal& one, const Proposal& other) {
    const auto mode = one.strategy->mode();
    const auto other_mode = other.strategy->mode();
    if (mode == StrategyMode::delimited || other_mode == StrategyMode::delimited) {
        return mode != other_mode ||
               one.strategy->options().delimiters != other.strategy->options().delimiters;
    }
    // Blanks and fixed positions that give the same number of columns are taken to give the same
    // columns.
    return mode != other_mode && one.columns.size() != other.columns.size();
}

/// The user has excluded fixed widths and nothing else. The library has no setting for that, so
/// each other layout is asked for by itself.
Advice without_fixed_widths(const textio::Field& text, const Settings& settings) {
    Advice all;
    textio::advice::Settings known = settings.known;
    for (const auto mode :
         {StrategyMode::delimited, StrategyMode::space_aligned, StrategyMode::line_reader}) {
        known.layout = mode;
        Advice advice = textio::advice::advise(text, settings.rows, known);
        std::move(advice.proposals.begin(), advice.proposals.end(),
                  std::back_inserter(all.proposals));
    }
    // A text that cannot be read in the layout asked for is read as lines, once more.
    std::stable_sort(all.proposals.begin(), all.proposals.end(),
                     [](const auto& left, const auto& right) { return left.score > right.score; });
    bool has_lines = false;
    std::erase_if(all.proposals, [&has_lines](const Proposal& proposal) {
        const bool is_line = proposal.strategy->mode() == StrategyMode::line_reader;
        return is_line && std::exchange(has_lines, true);
    });
    const Proposal& best = all.proposals.front();
    const Proposal* rival = rival_of_best(all);
    all.is_table = best.strategy->mode() != StrategyMode::line_reader;
    all.confidence = rival == nullptr ? 1 : best.score / rival->score;
    return all;
}

/// A delimiter that separates nothing is none.
bool is_one_column(const textio::GenericStrategy& layout, std::size_t columns) {
    return layout.mode() == StrategyMode::line_reader ||
           (layout.mode() == StrategyMode::delimited && columns <= 1);
}

} // namespace

Advised advise(std::string file, std::unique_ptr<ByteSource> bytes, const Settings& settings) {
    auto input = std::make_unique<TextInput>(std::move(bytes), settings.encoding,
                                             settings.options.line_endings);
    const textio::Field& text = input->text();
    const bool is_open = !settings.known.layout;
    const bool excludes_fixed =
        is_open && settings.options.layout_hint == textio::parser::layout::no_fixed_width;
    Advice advice = excludes_fixed ? without_fixed_widths(text, settings)
                                   : textio::advice::advise(text, settings.rows, settings.known);
    auto by_rules = settings.rules_know_all() ? ask_rules(text, settings) : nullptr;
    return {std::move(file), std::move(input), std::move(advice), std::move(by_rules)};
}

bool rules_differ(const Advised& advised) {
    if (advised.by_rules == nullptr) {
        return false;
    }
    const auto& best = *advised.best().strategy;
    const auto& rules = *advised.by_rules;
    if (is_one_column(best, advised.best().columns.size()) &&
        is_one_column(rules, rules.num_variables())) {
        return false;
    }
    return best.mode() != rules.mode() || (best.mode() == StrategyMode::delimited &&
                                           best.options().delimiters != rules.options().delimiters);
}

const Proposal* rival_of_best(const Advice& advice) {
    const auto& proposals = advice.proposals;
    const auto rival =
        std::find_if(proposals.begin() + 1, proposals.end(), [&](const Proposal& proposal) {
            return are_rivals(proposals.front(), proposal);
        });
    return rival == proposals.end() ? nullptr : &*rival;
}

} // namespace detect_layout
