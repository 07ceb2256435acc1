#include "c/rules.hpp"

#include "c/hints.hpp"
#include "textio/strategy_selector.hpp"

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace textio::c {

using zentor::io::text::typedetection::FieldClass;
using zentor::io::text::typedetection::TypeAnalyzer;

namespace {

/// Counts the cells of a row under their columns.
void count_cells(std::span<const Field> row, const TypeAnalyzer<false>& analyzer,
                 std::vector<advice::Column>& columns) {
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const bool has_value = k < row.size() && analyzer.classify(row[k]) != FieldClass::unknown;
        ++(has_value ? columns[k].values : columns[k].missing);
    }
}

/// Counts the rows behind the header, and their cells.
void count_rows(const TypeAnalyzer<false>& analyzer, advice::Proposal& proposal) {
    const FieldArray& sample = *proposal.strategy->field_array();
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        const auto row = sample.line(line);
        if (row.empty()) {
            continue;
        }
        ++proposal.rows;
        if (line >= proposal.first_data_line) {
            count_cells(row, analyzer, proposal.columns);
            proposal.regular_rows += row.size() == proposal.columns.size() ? 1 : 0;
        }
    }
}

} // namespace

advice::Proposal ask_rules(const Field& text, const textio_hints& hints) {
    const RulesSettings settings = rules_settings_of(hints);
    detection::StrategySelector selector(settings.options, settings.type_options);
    advice::Proposal proposal;
    proposal.strategy = selector.pick_strategy(text, hints.rows.value_or(usual_rows));
    // The layout to fall back on comes without a valuation, and so without its number of columns.
    proposal.strategy->valuation();
    proposal.type_options = settings.type_options;
    proposal.decimal_mark = settings.type_options.decimal_separator;
    proposal.thousands_separator = settings.type_options.thousands_separator;
    proposal.first_data_line = proposal.strategy->header_lines();
    for (const FieldClass type : proposal.strategy->column_classes()) {
        proposal.columns.emplace_back().type = type;
    }
    count_rows(TypeAnalyzer<false>(settings.type_options), proposal);
    return proposal;
}

} // namespace textio::c
