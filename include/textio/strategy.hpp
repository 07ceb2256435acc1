/// \file
/// Strategies: one hypothesis each about how a text is laid out, with the sample read under it and
/// the figures that the sample gave.
#pragma once

#include "textio/export.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/strategy_valuation.hpp"
#include "textio/type_analyzer.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace textio {

namespace enums {

/// The layout that a strategy stands for.
enum class StrategyMode : std::uint8_t {
    delimited = 0,     ///< fields end at delimiters: `DelimitedStrategy`
    space_aligned = 1, ///< fields end at runs of blanks and tabs: `SpaceAlignedStrategy`
    fixed_width = 2,   ///< fields have fixed widths: `FixedWidthStrategy`
    line_reader = 3    ///< one field per line: `LineReaderStrategy`
};

} // namespace enums

/// The library's own: it values a strategy in two steps.
struct LineFigures;

/// A hypothesis about the layout of a text: the options set up for it, the sample read under those
/// options, and the sample's valuation. The four layouts differ in what their constructors set up
/// and in nothing else.
///
/// The answer of a detection run is one of these; read the layout from `mode()`,
/// `options().delimiters`, `options().field_widths` and `header_lines()`. A strategy belongs to one
/// thread at a time.
class TEXTIO_EXPORT GenericStrategy {
public:
    virtual ~GenericStrategy() = 0;
    GenericStrategy(const GenericStrategy&) = delete;
    GenericStrategy& operator=(const GenericStrategy&) = delete;

    /// The layout that this strategy stands for.
    [[nodiscard]] enums::StrategyMode mode() const noexcept { return mode_; }

    /// The options as this layout reads under them; a reader made from them reads the same fields.
    [[nodiscard]] const parser::options& options() const noexcept { return options_; }

    /// Whether the header is to be detected.
    [[nodiscard]] bool auto_header_lines() const noexcept { return auto_header_lines_; }

    /// Whether fields are separated by blank space.
    [[nodiscard]] bool space_separated() const noexcept { return space_separated_; }

    /// Whether a sample has been handed over.
    [[nodiscard]] bool has_fields() const noexcept { return has_fields_; }

    /// The record as it stands, valued or not.
    [[nodiscard]] const StrategyValuation& valuation_record() const noexcept {
        return valuation_record_;
    }

    /// Fixes the header at `lines` lines of the text, or, with `SIZE_MAX`, hands the decision back
    /// to detection. One field per line knows no header: there the count is always 0. A valuation
    /// already made stays as it is.
    void header_lines(std::size_t lines) noexcept;

    /// The header in lines of the text, `SIZE_MAX` while it is undecided.
    [[nodiscard]] std::size_t header_lines() const noexcept { return header_lines_value_; }

    /// The number of columns, or all bits set while the strategy is not valued.
    [[nodiscard]] std::size_t num_variables() const noexcept;

    /// Takes a sample over and destroys the one held before. A valuation already made stays.
    void field_array(std::unique_ptr<FieldArray> fields) noexcept;

    /// The sample, null if there is none yet. It belongs to the strategy; its fields are views of
    /// the sample text.
    [[nodiscard]] FieldArray* field_array() const noexcept { return fields_.get(); }

    /// Values the sample, once: later calls give the same record at once. Drops empty lines at the
    /// end of the sample and settles `header_lines()`. Needs a sample. Throws only
    /// `std::bad_alloc`; the strategy is then as if it had not been called, but for the empty
    /// lines.
    StrategyValuation& valuation();

    /// Replaces the units that are trimmed from a field before it is classified, and nothing else.
    void reset_whitespace(const std::u16string& whitespace);

    /// The number of columns on the lines behind the header, `counts` being the number of fields of
    /// each line; at least 1.
    [[nodiscard]] std::size_t
    get_number_of_variables(const std::vector<std::size_t>& counts) const noexcept;

    /// Decides the header if it is undecided. `diffs` are the distances of the non-empty lines from
    /// the typical field count, and `h_min` the smallest header considered.
    void calculate_headerlines(const std::vector<std::size_t>& diffs, std::size_t h_min);

    /// The mean of `diffs` behind the header; infinity when the header takes up all of them.
    [[nodiscard]] double get_data_variation(const std::vector<std::size_t>& diffs) const noexcept;

    /// Classifies the columns, from the end of the sample upward until each has a class, and adds
    /// the result to the counters of the record. Needs a sample.
    void inspect_datatypes();

    /// The class of each column, from the left: what `inspect_datatypes()` finds, without a trace
    /// in the record. There are as many as the valuation counts columns, and the lines looked at
    /// are those behind the first data line; a column that says nothing on any of them is
    /// `unknown`. A strategy that is not valued, such as one to fall back on, is looked at as its
    /// valuation would look at it, and is not valued by that. Without a sample there are no
    /// columns. Throws only `std::bad_alloc`.
    [[nodiscard]] std::vector<zentor::io::text::typedetection::FieldClass> column_classes() const;

protected:
    /// Copies the options; the strategy of a layout then fixes in `options_` what its layout needs.
    GenericStrategy(const parser::options& options,
                    const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                    enums::StrategyMode mode);

    parser::options options_;            ///< how this layout reads
    StrategyValuation valuation_record_; ///< the figures of the sample
    bool auto_header_lines_;             ///< the header is to be detected
    std::size_t header_lines_value_;     ///< the header; `SIZE_MAX` while it is undecided

    /// What classifies the columns.
    zentor::io::text::typedetection::TypeAnalyzer<false> type_analyzer_;

    std::unique_ptr<FieldArray> fields_; ///< the sample
    bool valuation_cached_ = false;      ///< all figures are those of the sample
    bool space_separated_ = false;       ///< fields are separated by blank space
    bool has_fields_ = false;            ///< a sample has been handed over
    enums::StrategyMode mode_;           ///< the layout

private:
    friend struct LineFigures;
};

/// One field per line, blanks included. It never has header lines.
class TEXTIO_EXPORT LineReaderStrategy : public GenericStrategy {
public:
    /// Empty lines stay in the sample, so that its lines are those of the text.
    LineReaderStrategy(const parser::options& options,
                       const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options);
    ~LineReaderStrategy() override;
};

/// Fields that end at delimiters.
class TEXTIO_EXPORT DelimitedStrategy : public GenericStrategy {
public:
    /// Splits at `options.delimiters`.
    DelimitedStrategy(const parser::options& options,
                      const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options);

    /// Splits at one character.
    DelimitedStrategy(const parser::options& options,
                      const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                      char16_t delimiter);

    /// Splits at each of `delimiters`.
    DelimitedStrategy(const parser::options& options,
                      const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                      const std::vector<std::u16string>& delimiters);

    ~DelimitedStrategy() override;

    /// All delimiters of this strategy.
    [[nodiscard]] const std::vector<std::u16string>& delimiter() const noexcept {
        return options_.delimiters;
    }
};

/// Fields that end at runs of blanks and tabs; blanks at both ends of a line separate nothing.
class TEXTIO_EXPORT SpaceAlignedStrategy : public GenericStrategy {
public:
    /// Blank and tab are the delimiters, and no longer whitespace.
    SpaceAlignedStrategy(const parser::options& options,
                         const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options);
    ~SpaceAlignedStrategy() override;
};

/// Fields of fixed widths.
class TEXTIO_EXPORT FixedWidthStrategy : public GenericStrategy {
public:
    /// Splits at `widths`, in code units; they are taken over, and the vector is left empty.
    FixedWidthStrategy(const parser::options& options,
                       const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                       std::vector<std::size_t>&& widths);
    ~FixedWidthStrategy() override;
};

} // namespace textio
