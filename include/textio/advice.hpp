/// \file
/// The second door of the library: the layout of a text that nobody knows anything about.
///
/// `StrategySelector` is told what its host knows: the quote, the comment sign, the decimal mark.
/// `advise` tries what a host would otherwise be asked for, reads the text under each assumption,
/// grades what the rows and cells of each reading look like, and ranks the readings.
#pragma once

#include "textio/export.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/strategy.hpp"
#include "textio/type_analyzer.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace textio::advice {

/// Stands for a line that does not exist: a table without names has them on `no_line`.
inline constexpr std::size_t no_line = SIZE_MAX;

/// What `advise` may try, and what it is told. Each member of the second group that holds a value
/// is taken as it is: nothing else is tried in its place.
struct Settings {
    /// Line endings, whitespace and the rules of a read. Quote, comments, delimiters, widths,
    /// header and layout hint of this record are not looked at: say those below.
    parser::options options{};

    /// Exponents, the texts that count as missing, and what is handed on to `is_datetime`. The
    /// marks of numbers are said below.
    zentor::io::text::typedetection::TypeAnalyzerOptions type_options{};

    /// Strings that may open a comment to the end of the line, tried where lines begin with them.
    std::vector<std::u16string> comment_openers{u"#", u"%",  u"!", u"//", u";",  u"--",
                                                u"*", u"\\", u"~", u"@",  u"REM"};

    /// Quotes that are tried beside `"`, where they frame fields.
    std::u16string quotes = u"'~|*^`";

    /// Delimiters that are tried beside those that the text suggests, where they occur.
    std::vector<std::u16string> delimiters{};

    /// The most readings that are made of the text, at least one. The likeliest are made first.
    std::size_t reading_limit = 48;

    /// The most proposals that are given, at least one.
    std::size_t proposal_limit = 8;

    std::optional<enums::StrategyMode> layout{}; ///< known: the kind of layout
    std::optional<std::u16string> delimiter{};   ///< known: the delimiter; implies the layout
    /// Known: widths in code units; imply the layout. An empty list says that there are such
    /// columns.
    std::optional<std::vector<std::size_t>> widths{};
    std::optional<char16_t> quote{}; ///< known: the quote; 0 for none
    /// Known: the comments, as `parser::options::comment_style` has them; an empty list for none.
    std::optional<std::vector<std::u16string>> comment_style{};
    std::optional<char16_t> decimal_mark{};        ///< known: the decimal mark
    std::optional<char16_t> thousands_separator{}; ///< known: the separator; 0 for none
    std::optional<std::size_t> first_data_line{};  ///< known: a line of the text, from 0
    /// Known: the line of the names, from 0; `no_line` if there are none.
    std::optional<std::size_t> names_line{};
};

/// One column of a proposed table.
struct Column {
    /// The name, a view of the text without its blanks and quotes; empty where there is none. What
    /// stands twice in the text stands twice here: `column_name` gives the name itself.
    std::u16string_view name;
    /// What most of its values are; `unknown` for a column without any.
    zentor::io::text::typedetection::FieldClass type =
        zentor::io::text::typedetection::FieldClass::unknown;
    std::size_t values = 0;  ///< cells of the sample that hold a value
    std::size_t missing = 0; ///< cells that are empty or count as missing, or that a row lacks
};

/// One factor of a score.
struct Term {
    std::string_view name; ///< a word, such as `consistency`; valid for ever
    double value = 1;      ///< the factor, already raised to its power; 1 takes nothing away
};

/// One reading of the text, graded.
struct Proposal {
    /// The layout with the sample read under it, as `StrategySelector` would give it. Its options
    /// are ready for use: a reader made from them reads the table. Its fields are views of the
    /// text. Not valued.
    std::shared_ptr<GenericStrategy> strategy;

    /// How the cells are to be judged, decimal mark and thousands separator included.
    zentor::io::text::typedetection::TypeAnalyzerOptions type_options;

    char16_t decimal_mark = 0;        ///< found in the numbers; 0 where nothing tells
    char16_t thousands_separator = 0; ///< found in the numbers; 0 where there is none
    std::size_t names_line = no_line; ///< the line of the text with the names, from 0
    std::size_t first_data_line = 0;  ///< the first line of the text with data, from 0
    std::vector<Column> columns;      ///< from the left
    std::size_t regular_rows = 0;     ///< rows of its regular run that have all its fields
    std::size_t rows = 0;             ///< rows of the sample, those above the table included
    double score = 0;                 ///< the product of the terms, above 0 and at most 1
    std::vector<Term> terms;          ///< in the order in which they are told
};

/// What `advise` found.
struct Advice {
    /// The readings, best first; never empty. Readings that differ only in what is missing from
    /// the text, such as a quote that does not occur, are one.
    std::vector<Proposal> proposals;

    /// The score of the best proposal over the best one with another kind of layout or another
    /// delimiter: from 1, where the two are alike, up. 3 and more can be relied on.
    double confidence = 1;

    /// Whether the text holds a table of two columns or more, as far as can be told.
    bool is_table = false;
};

/// The name of `column` with one quote for each doubled one. `quote` is that of the options of its
/// proposal. Throws `std::bad_alloc`.
[[nodiscard]] TEXTIO_EXPORT std::u16string column_name(const Column& column, char16_t quote);

/// Reads up to `sample_lines` rows of `text` under every assumption worth trying, and ranks the
/// readings.
///
/// \code
/// const std::u16string text = u"Stock, main store\nitem;price\nbolt;0,12\nnut;0,08\n";
/// const auto advice = textio::advice::advise(textio::Field(text), 250);
/// const textio::advice::Proposal& best = advice.proposals.front();
/// // best.strategy->options().delimiters, best.columns[1].name, best.first_data_line, ...
/// \endcode
///
/// `text` must stay valid during the call, and its characters for as long as the proposals are
/// used. Any text and any settings give an answer. Throws `std::bad_alloc` and nothing else. The
/// cost is linear in the part of the text that is sampled, for each reading.
[[nodiscard]] TEXTIO_EXPORT Advice advise(const Field& text, std::size_t sample_lines,
                                          const Settings& settings);

/// The same with nothing known.
[[nodiscard]] TEXTIO_EXPORT Advice advise(const Field& text, std::size_t sample_lines);

} // namespace textio::advice
