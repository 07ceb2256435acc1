// A host in small: links the library the way that is being tried and uses its door.
#include <textio/textio.hpp>

#include <iostream>

int main() {
    const textio::parser::options options;
    const zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
    textio::detection::StrategySelector selector(options, type_options);
    const std::u16string text = u"when;what\n2024-03-01;3,5\n2024-03-02;4,25\n";
    const auto layout = selector.pick_strategy(textio::Field(text), 250);
    const bool is_right = layout->options().delimiters == std::vector<std::u16string>{u";"} &&
                          layout->num_variables() == 2 &&
                          layout->valuation_record().temporal_variables == 1;
    std::cout << TEXTIO_VERSION_STRING << (is_right ? " right" : " wrong") << '\n';
    return is_right ? 0 : 1;
}
