// The class of any text as a field, and the operations that prepare it.
#include "input.hpp"
#include "textio/type_analyzer.hpp"
#include "typedetection/number_scanner.hpp"

namespace {

using namespace zentor::io::text::typedetection;
using fuzz::require;
using textio::Field;
using textio::MutableField;

bool is_class(FieldClass value) {
    const auto number = static_cast<unsigned>(value);
    return number >= 1 && number <= 12 && number != 4 && number != 6;
}

/// A field of the text that `operation` leaves of `text`, checked on the way.
template <class Operation>
std::u16string processed(const Operation& operation, const Field& text) {
    const std::u16string before(text.view());
    MutableField field(text);
    operation.process(field);
    require(field.size <= text.size, "no operation makes a text longer");
    require(text.view() == before, "the text itself stays as it is");
    return std::u16string(field.view());
}

void check_operations(const TypeAnalyzerOptions& options, const Field& text, char16_t quote) {
    using namespace textio::operations;
    const std::u16string trimmed = processed(trim_whitespace{options.whitespace}, text);
    require(trimmed == processed(trim_whitespace{options.whitespace}, Field(trimmed)),
            "a trimmed text stays as it is");
    processed(unquote{quote}, text);
    processed(treat_as_missing{options.treat_as_missing}, text);
    const std::u16string units(1, options.decimal_separator);
    const std::u16string left = processed(remove_characters{units}, text);
    require(left.find_first_of(units) == std::u16string::npos, "removed units are gone");
    const std::u16string replaced = processed(replace_characters{units, u'.'}, text);
    require(replaced.size() == text.size &&
                (options.decimal_separator == u'.' || replaced.find(units) == std::u16string::npos),
            "replaced units are gone");
    const std::u16string numeric = processed(trim_non_numeric{}, text);
    require(text.view().find(numeric) != std::u16string_view::npos, "a number is part of its text");
}

void check_scanning(const TypeAnalyzerOptions& options, std::u16string_view text) {
    for (std::size_t start = 0; start < text.size(); ++start) {
        const std::size_t end = scan_number(text, start, options.exponent_characters);
        require(end >= start && end <= text.size(), "a number ends in the text");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const TypeAnalyzerOptions options = input.type_options();
    const char16_t quote = input.unit(u'"');
    const fuzz::Text text = input.text();
    const Field field = text.field();
    const std::u16string before(field.view());

    const TypeAnalyzer<false> analyzer(options);
    const FieldClass found = analyzer.classify(field);
    require(is_class(found), "a class is found");
    require(found == analyzer.classify(field), "a second look finds the same class");
    require(found == TypeAnalyzer<false>(options).classify(Field(before)),
            "a copy of the text has the same class");
    require(field.view() == before, "the text stays as it is");
    if (!options.whitespace.empty()) {
        const std::u16string padded = options.whitespace + before + options.whitespace;
        require(found == analyzer.classify(Field(padded)), "blanks around a text change nothing");
    }
    check_operations(options, field, quote);
    check_scanning(options, field.view());
    return 0;
}
