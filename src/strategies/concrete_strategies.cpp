#include "common_delimiters.hpp"
#include "textio/strategy.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

namespace textio {

using enums::StrategyMode;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

/// Behind the single delimiters that are common, and still below the limit of what is common.
constexpr double space_aligned_rank = 3.5;
constexpr double uncommon_rank = 0x1p64; ///< of any delimiter that is not among the common ones

const std::vector<std::u16string>& blank_and_tab() {
    static const std::vector<std::u16string> strings{u" ", u"\t"};
    return strings;
}

/// A character that separates fields is never blank inside one.
std::u16string without(std::u16string whitespace, const std::vector<std::u16string>& delimiters) {
    std::u16string units;
    for (const std::u16string& delimiter : delimiters) {
        if (delimiter.size() == 1) {
            units.push_back(delimiter.front());
        }
    }
    std::sort(units.begin(), units.end());
    std::erase_if(whitespace, [&units](char16_t unit) {
        return std::binary_search(units.begin(), units.end(), unit);
    });
    return whitespace;
}

/// Detection never reads a sample under a rule that can fail.
void separate_instead_of_error(std::uint8_t& rule) {
    static_assert(parser::consecutive_delimiters::error == parser::leading_delimiters::error &&
                  parser::consecutive_delimiters::error == parser::trailing_delimiters::error);
    if (rule == parser::consecutive_delimiters::error) {
        rule = parser::consecutive_delimiters::separate;
    }
}

} // namespace

LineReaderStrategy::LineReaderStrategy(const parser::options& options,
                                       const TypeAnalyzerOptions& type_options)
    : GenericStrategy(options, type_options, StrategyMode::line_reader) {
    options_.reader_kind = parser::record_reader::line;
    options_.consecutive_delimiters_rule = parser::consecutive_delimiters::separate;
    options_.empty_line_rule = parser::empty_line::keep;
    options_.leading_delimiters_rule = parser::leading_delimiters::keep;
    auto_header_lines_ = false;
    header_lines_value_ = 0;
}

LineReaderStrategy::~LineReaderStrategy() = default;

DelimitedStrategy::DelimitedStrategy(const parser::options& options,
                                     const TypeAnalyzerOptions& type_options)
    : DelimitedStrategy(options, type_options, options.delimiters) {}

DelimitedStrategy::DelimitedStrategy(const parser::options& options,
                                     const TypeAnalyzerOptions& type_options, char16_t delimiter)
    : DelimitedStrategy(options, type_options, {std::u16string(1, delimiter)}) {}

DelimitedStrategy::DelimitedStrategy(const parser::options& options,
                                     const TypeAnalyzerOptions& type_options,
                                     const std::vector<std::u16string>& delimiters)
    : GenericStrategy(options, type_options, StrategyMode::delimited) {
    if (delimiters.size() == 1 && delimiters.front().size() == 1) {
        const char16_t delimiter = delimiters.front().front();
        const std::size_t place = common_delimiters.find(delimiter);
        valuation_record_.prior_rank =
            place < common_delimiters.size() ? static_cast<double>(place) : uncommon_rank;
        space_separated_ = delimiter == u' ';
    }
    separate_instead_of_error(options_.consecutive_delimiters_rule);
    separate_instead_of_error(options_.leading_delimiters_rule);
    separate_instead_of_error(options_.trailing_delimiters_rule);
    options_.whitespace = without(options.whitespace, delimiters);
    type_analyzer_.reset_whitespace(options_.whitespace);
    options_.detect_delimiters = false;
    options_.delimiters = delimiters;
    options_.empty_line_rule = parser::empty_line::keep;
    options_.reader_kind = parser::record_reader::delimited;
}

DelimitedStrategy::~DelimitedStrategy() = default;

SpaceAlignedStrategy::SpaceAlignedStrategy(const parser::options& options,
                                           const TypeAnalyzerOptions& type_options)
    : GenericStrategy(options, type_options, StrategyMode::space_aligned) {
    valuation_record_.prior_rank = space_aligned_rank;
    space_separated_ = true;
    options_.whitespace = without(options.whitespace, blank_and_tab());
    type_analyzer_.reset_whitespace(options_.whitespace);
    options_.detect_delimiters = false;
    options_.delimiters = blank_and_tab();
    options_.consecutive_delimiters_rule = parser::consecutive_delimiters::merge;
    options_.empty_line_rule = parser::empty_line::keep;
    options_.leading_delimiters_rule = parser::leading_delimiters::skip;
    options_.trailing_delimiters_rule = parser::trailing_delimiters::drop;
    options_.reader_kind = parser::record_reader::delimited;
}

SpaceAlignedStrategy::~SpaceAlignedStrategy() = default;

FixedWidthStrategy::FixedWidthStrategy(const parser::options& options,
                                       const TypeAnalyzerOptions& type_options,
                                       std::vector<std::size_t>&& widths)
    : GenericStrategy(options, type_options, StrategyMode::fixed_width) {
    options_.field_widths = std::exchange(widths, {});
    options_.empty_line_rule = parser::empty_line::keep;
    options_.partial_field_rule = parser::partial_field::keep;
    options_.reader_kind = parser::record_reader::fixed_width;
}

FixedWidthStrategy::~FixedWidthStrategy() = default;

} // namespace textio
