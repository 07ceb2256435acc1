/// \file
/// The door of the library.
#pragma once

#include "textio/decision_observer.hpp"
#include "textio/export.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/strategy.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace textio::detection {

/// Works out how a text is laid out.
///
/// \code
/// textio::parser::options options;
/// zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
/// textio::detection::StrategySelector selector(options, type_options);
/// const std::u16string text = u"name,age\nAnn,41\nBob,37\n";
/// const auto layout = selector.pick_strategy(textio::Field(text), 250);
/// // layout->mode(), layout->options().delimiters, layout->header_lines(), ...
/// \endcode
///
/// Two selectors can run on two threads at once, even on the same option records, as long as nobody
/// changes those.
class TEXTIO_EXPORT StrategySelector {
public:
    /// Keeps references to both records, which must outlive the selector: give it no temporary,
    /// such as `{}`, if it outlives the statement.
    StrategySelector(const parser::options& options,
                     const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options);

    /// The delimiters that the options gave at construction. What detection found stands on the
    /// strategy that it returns.
    [[nodiscard]] const std::vector<std::u16string>& delimiters() const noexcept {
        return delimiters_;
    }

    /// The header count that the options gave at construction, in lines of the text.
    [[nodiscard]] std::size_t header_lines() const noexcept { return header_lines_; }

    /// Whether the options asked for delimiters to be found; the search is made in any case.
    [[nodiscard]] bool detect_delimiters() const noexcept { return detect_delimiters_; }

    /// Whether the options asked for header lines to be found.
    [[nodiscard]] bool detect_header_lines() const noexcept { return detect_header_lines_; }

    /// Reads up to `sample_lines` rows of `text` under every plausible layout and gives the layout
    /// that explains them best; never an empty pointer. Rows are lines with content: empty lines
    /// and comments do not count, and header lines that the options fix come on top.
    ///
    /// `text` must stay valid during the call, and its characters for as long as the fields of the
    /// result are used. No text is an error. Throws `std::bad_alloc` and nothing else; the selector
    /// can be used again after that. The cost is linear in the part of the text that is sampled,
    /// for each of the at most 54 layouts tried, and once more for the comma that is fallen back
    /// on.
    std::shared_ptr<GenericStrategy> pick_strategy(const Field& text, std::size_t sample_lines);

    /// The same, and tells `observer` how the decision comes about. What that throws goes through.
    std::shared_ptr<GenericStrategy> pick_strategy(const Field& text, std::size_t sample_lines,
                                                   DecisionObserver& observer);

private:
    const parser::options& options_;
    const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options_;
    std::vector<std::u16string> delimiters_;
    std::size_t header_lines_;
    bool detect_delimiters_;
    bool detect_header_lines_;
};

} // namespace textio::detection
