// Tells the layout of a UTF-8 file whose dates are written as people of one locale write them.
#include <textio/textio.hpp>

#include <unicode/unistr.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

std::u16string to_utf16(const std::string& text) {
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    return {units.getBuffer(), static_cast<std::size_t>(units.length())};
}

std::string to_utf8(const std::u16string& text) {
    std::string bytes;
    return icu::UnicodeString(text.data(), static_cast<std::int32_t>(text.size()))
        .toUTF8String(bytes);
}

} // namespace

int main(int count, const char* const* arguments) {
    if (count != 3) {
        std::cerr << "usage: icu_dates LOCALE FILE\n";
        return 2;
    }
    std::ifstream file(arguments[2], std::ios::binary);
    if (!file) {
        std::cerr << "icu_dates: cannot read " << arguments[2] << '\n';
        return 2;
    }
    const std::u16string text =
        to_utf16({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});

    const textio::parser::options options;
    zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
    type_options.datetime_context = to_utf16(arguments[1]);
    textio::detection::StrategySelector selector(options, type_options);
    const auto layout = selector.pick_strategy(textio::Field(text), 250);
    const textio::StrategyValuation& valuation = layout->valuation();

    std::cout << "delimiters:";
    for (const std::u16string& delimiter : layout->options().delimiters) {
        std::cout << " '" << to_utf8(delimiter) << '\'';
    }
    std::cout << ", columns: " << valuation.num_variables << ", columns of dates: "
              << valuation.temporal_variables + valuation.datetime_variables << '\n';
}
