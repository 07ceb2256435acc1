#include "strategies/column_classes.hpp"
#include "strategies/line_figures.hpp"
#include "strategies/measuring.hpp"
#include "textio/strategy.hpp"

namespace textio {

namespace {

/// `record` as it is, but for a header that the strategy may have changed since.
StrategyValuation with_header(StrategyValuation record, std::size_t header_lines) {
    record.header_lines = header_lines;
    return record;
}

} // namespace

StrategyValuation& GenericStrategy::valuation() {
    return valuation_cached_ ? valuation_record_ : LineFigures(*this).settle(*this);
}

void GenericStrategy::calculate_headerlines(const std::vector<std::size_t>& diffs,
                                            std::size_t h_min) {
    header_lines_value_ = decided_header(with_header(valuation_record_, header_lines_value_), diffs,
                                         h_min, space_separated_);
}

double GenericStrategy::get_data_variation(const std::vector<std::size_t>& diffs) const noexcept {
    return variation_behind_header(with_header(valuation_record_, header_lines_value_), diffs);
}

std::size_t
GenericStrategy::get_number_of_variables(const std::vector<std::size_t>& counts) const noexcept {
    return most_fields(counts, header_lines_value_);
}

void GenericStrategy::inspect_datatypes() {
    count_classes(find_column_classes(*fields_, type_analyzer_,
                                      with_header(valuation_record_, header_lines_value_)),
                  valuation_record_);
}

std::vector<zentor::io::text::typedetection::FieldClass> GenericStrategy::column_classes() const {
    if (!fields_) {
        return {};
    }
    const StrategyValuation record = valuation_cached_
                                         ? with_header(valuation_record_, header_lines_value_)
                                         : LineFigures(*this).record;
    return find_column_classes(*fields_, type_analyzer_, record);
}

} // namespace textio
