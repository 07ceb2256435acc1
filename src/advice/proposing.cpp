#include "advice/proposing.hpp"

#include "advice/columns.hpp"
#include "advice/comments.hpp"
#include "advice/table_start.hpp"
#include "parser/read_sample.hpp"

#include <utility>

namespace textio::advice {

using enums::StrategyMode;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

std::u16string_view opener_of(const parser::options& options) {
    return options.comment_style.empty() ? std::u16string_view()
                                         : std::u16string_view(options.comment_style.front());
}

TableStart found_start(const Reading& reading, const ProposalSources& sources) {
    CellJudge judge(*sources.memory, reading.quote);
    return find_table_start(reading, *sources.lines, *sources.raw_lines,
                            opener_of(*sources.options), judge);
}

/// Names do not stand below the first data.
void drop_names_below(TableStart& start) {
    if (start.names_line >= start.first_data_line) {
        start.names_line = SIZE_MAX;
        start.names.clear();
    }
}

TableStart start_of(const Reading& reading, const ProposalSources& sources) {
    const Settings& settings = *sources.settings;
    TableStart start = reading.is_line_by_line() ? TableStart() : found_start(reading, sources);
    if (settings.names_line && *settings.names_line != start.names_line) {
        move_names(start, *settings.names_line, reading, *sources.lines, *sources.raw_lines,
                   opener_of(*sources.options));
    }
    if (settings.first_data_line) {
        move_first_data(start, *settings.first_data_line, *sources.raw_lines);
        if (!settings.names_line) {
            drop_names_below(start);
        }
    }
    return start;
}

/// The options that read the reading's table and nothing but it.
parser::options options_of(const Reading& reading, const TableStart& start,
                           const ProposalSources& sources) {
    parser::options options = *sources.options;
    options.quote = reading.quote;
    const bool is_known = sources.settings->comment_style.has_value();
    if (!is_known && !are_comments(*sources.raw_lines, options.comment_style, start.names_line,
                                   start.first_data_line)) {
        options.comment_style.clear();
    }
    if (reading.edges.leading) {
        options.leading_delimiters_rule = parser::leading_delimiters::skip;
    }
    if (reading.edges.trailing != 0) {
        options.trailing_delimiters_rule = parser::trailing_delimiters::drop;
    }
    return options;
}

/// The widths that the host told, or else those of the columns that were found.
std::vector<std::size_t> widths_for(const Reading& reading, const ProposalSources& sources) {
    const auto told = sources.settings->widths.value_or(std::vector<std::size_t>());
    return told.empty() ? widths_of(*sources.lines, reading.positions) : told;
}

std::shared_ptr<GenericStrategy> make_strategy(const Reading& reading,
                                               const parser::options& options,
                                               const TypeAnalyzerOptions& type_options,
                                               const ProposalSources& sources) {
    switch (reading.mode) {
    case StrategyMode::delimited:
        return std::make_shared<DelimitedStrategy>(options, type_options,
                                                   std::vector<std::u16string>{reading.delimiter});
    case StrategyMode::space_aligned:
        return std::make_shared<SpaceAlignedStrategy>(options, type_options);
    case StrategyMode::fixed_width:
        return std::make_shared<FixedWidthStrategy>(options, type_options,
                                                    widths_for(reading, sources));
    case StrategyMode::line_reader:
        break;
    }
    return std::make_shared<LineReaderStrategy>(options, type_options);
}

bool read_alike(const parser::options& one, const parser::options& other) {
    return one.comment_style == other.comment_style &&
           one.leading_delimiters_rule == other.leading_delimiters_rule &&
           one.trailing_delimiters_rule == other.trailing_delimiters_rule;
}

/// The marks that the host told, or else those that the numbers show.
void set_marks(const Settings& settings, const NumberMarks& marks, Proposal& proposal) {
    proposal.decimal_mark = settings.decimal_mark.value_or(marks.decimal_mark());
    proposal.thousands_separator =
        settings.thousands_separator.value_or(marks.thousands_separator());
    proposal.type_options = settings.type_options;
    if (proposal.decimal_mark != 0) {
        proposal.type_options.decimal_separator = proposal.decimal_mark;
    }
    proposal.type_options.thousands_separator = proposal.thousands_separator;
}

void set_grade(const Reading& reading, Proposal& proposal) {
    const bool at_positions = reading.is_at_positions();
    proposal.regular_rows = at_positions ? reading.positions.kept : reading.run.kept;
    proposal.rows = at_positions ? reading.positions.all : reading.run.all;
    proposal.score = reading.score;
    for (std::size_t term = 0; term < term_kinds; ++term) {
        proposal.terms.push_back({term_names[term], reading.terms.values()[term]});
    }
}

} // namespace

Proposal make_proposal(const Reading& reading, const ProposalSources& sources) {
    Proposal proposal;
    const TableStart start = start_of(reading, sources);
    proposal.names_line = start.names_line;
    proposal.first_data_line = start.first_data_line;

    TableTally tally = tally_of(reading, *sources.lines, start, sources.settings->type_options);
    set_marks(*sources.settings, tally.marks, proposal);
    proposal.columns = std::move(tally.columns);
    describe_columns(reading, *sources.lines, start, proposal.type_options, proposal.columns);

    const parser::options options = options_of(reading, start, sources);
    proposal.strategy = reading.strategy;
    if (proposal.strategy == nullptr || !read_alike(options, *sources.options)) {
        proposal.strategy = make_strategy(reading, options, proposal.type_options, sources);
        parser::read_sample(*sources.builder, proposal.strategy, false);
    }
    proposal.strategy->header_lines(start.first_data_line);
    set_grade(reading, proposal);
    return proposal;
}

} // namespace textio::advice
