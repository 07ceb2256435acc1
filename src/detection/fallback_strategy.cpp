#include "parser/read_sample.hpp"
#include "textio/candidates.hpp"

namespace textio::detection {

using zentor::io::text::typedetection::TypeAnalyzerOptions;

std::shared_ptr<GenericStrategy> fallback_strategy(const parser::options& options,
                                                   const TypeAnalyzerOptions& type_options,
                                                   const Field& /*text*/,
                                                   std::size_t /*sample_lines*/,
                                                   output::DetectionOutputBuilder& builder) {
    parser::options comma_options = options;
    comma_options.delimiters = {u","};
    comma_options.detect_delimiters = false;
    comma_options.detect_header_lines = false;
    comma_options.header_lines = 0;
    comma_options.expected_variables = 1;
    std::shared_ptr<GenericStrategy> strategy =
        std::make_shared<DelimitedStrategy>(comma_options, type_options);
    parser::read_sample(builder, strategy, false);
    return strategy;
}

} // namespace textio::detection
