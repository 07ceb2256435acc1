/// \file
/// The weights by which readings are graded, all in one place. None is tuned to a file: each says
/// how a person would weigh the evidence, and can move by a tenth without changing many answers.
#pragma once

#include "advice/cell_kind.hpp"

#include <array>
#include <cstddef>
#include <string_view>

namespace textio::advice::weights {

/// How well a cell of each kind speaks for the cut that made it, in the order of `CellKind`.
inline constexpr std::array<double, cell_kinds> of_cells = {
    0.5,  // missing: no evidence
    1,    // number
    1,    // date
    0.9,  // quoted
    0.65, // word
    0.65, // words
    0.35, // separated: another cut would be better
    0.1,  // gap: two cells in one
    0,    // broken: cut in the middle
};

/// How seldom a sign stands in ordinary text.
struct SignPrior {
    char16_t sign;
    double prior;
};
inline constexpr std::array<SignPrior, 12> of_signs = {{{u'\t', 1},
                                                        {u'|', 1},
                                                        {u'│', 1}, // of drawn tables
                                                        {u';', 1},
                                                        {u',', 0.95},
                                                        {u'^', 0.85},
                                                        {u'~', 0.85},
                                                        {u'!', 0.65},
                                                        {u'*', 0.65},
                                                        {u'#', 0.65},
                                                        {u'&', 0.65},
                                                        {u':', 0.6}}};
inline constexpr double of_control = 0.9;      ///< a control character other than the tab
inline constexpr double of_sign_beyond = 0.85; ///< a sign beyond ASCII
inline constexpr double of_other_sign = 0.3;   ///< `/`, `=`, `%`, and all else
inline constexpr double between_blanks = 0.9;  ///< such a sign with blanks at both sides
inline constexpr double as_punctuation = 0.5;  ///< factor: behind a word and before a blank
inline constexpr double of_blanks = 0.9;       ///< runs of blanks
inline constexpr double of_blanks_and_tabs = 0.75;
inline constexpr double of_positions = 0.8;
inline constexpr double of_padded_positions = 0.95; ///< the lines are all of one length
inline constexpr double of_ruled_positions = 1;     ///< a ruler shows the columns
inline constexpr double of_named_positions = 0.95;  ///< a heading stands flush with the columns
inline constexpr double of_one_length = 0.5;        ///< records of one length, without columns
inline constexpr double of_tagged_records = 0.75;   ///< each kind of record has fields of its own

inline constexpr double coverage = 0.25;            ///< power of the share that a table covers
inline constexpr double coverage_at_blanks = 0.375; ///< likewise of a table cut at blanks
inline constexpr double rows_doubt = 0.7;           ///< rows that prove as much as their absence
inline constexpr double positions_doubt = 2;        ///< likewise for positions that nothing shows
inline constexpr double short_row = 0.5;            ///< a row that lacks its last field
inline constexpr double announced_row = 0.75;       ///< a row that lacks last fields of the heading
inline constexpr double behind_run = 0.5;           ///< a row behind the table: a footer
inline constexpr double first_line_off = 0.8;       ///< the text's first row does not fit
inline constexpr double quotes_ignored = 0.8;   ///< the text has quotes that the reading ignores
inline constexpr double words_at_blanks = 0.5;  ///< nothing but words with single blanks between
inline constexpr double never_padded = 0.4;     ///< positions at which no cell is padded
inline constexpr double indentation = 0.4;      ///< two columns, the first mostly empty
inline constexpr double delimiter_beside = 0.6; ///< positions, though a delimiter is on most lines
inline constexpr double blanks_will_do = 0.85;  ///< positions that blanks give as well
inline constexpr double prose = 0.4;            ///< cut at blanks or punctuation of sentences
inline constexpr double code = 0.3;             ///< likewise of source code
inline constexpr double log = 0.25;             ///< likewise of log lines
inline constexpr double cut_numbers = 0.2;      ///< at the decimal commas of single numbers

inline constexpr double of_lines = 0.15;        ///< one field a line: what a table has to beat
inline constexpr double of_ragged_rows = 0.16;  ///< a delimiter on all lines of uneven rows
inline constexpr double of_single_values = 0.7; ///< what lines of one value each add to it
inline constexpr double of_log_lines = 0.5;     ///< one field a line in a log

/// What a fault makes of a factor that is 1 without it.
constexpr double if_so(bool has_fault, double weight) {
    return has_fault ? weight : 1;
}

} // namespace textio::advice::weights
