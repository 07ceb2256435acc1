#include "growth_cases.hpp"

#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"
#include "textio/textio.hpp"
#include "texts.hpp"

#include <memory>
#include <string_view>
#include <utility>

namespace bench {

namespace {

using textio::Field;
using textio::parser::options;
using textio::parser::partial_field::drop_mark_2;

struct Input {
    std::u16string text;
    options reading = {};
};

struct Shape {
    const char* name;
    Input (*make)(std::size_t units);
};

std::u16string repeated(std::u16string_view part, std::size_t units) {
    std::u16string text;
    text.reserve(units + part.size());
    while (text.size() < units) {
        text += part;
    }
    return text;
}

/// So many different strings.
std::vector<std::u16string> different_strings(std::size_t count) {
    std::vector<std::u16string> strings;
    for (std::size_t i = 0; i < count; ++i) {
        const auto unit = [i](std::size_t shift) {
            return static_cast<char16_t>(0x4000 + (i >> shift) % 0x1000);
        };
        strings.push_back({unit(0), unit(12)});
    }
    return strings;
}

/// So many different units with gaps between them.
std::u16string different_units(std::size_t count) {
    std::u16string units;
    for (std::size_t i = 0; i < count; ++i) {
        units += static_cast<char16_t>(0x4000 + 2 * i);
    }
    return units;
}

/// Lines of 1 to `longest` fields, up or down.
std::u16string staircase(std::size_t units, bool up) {
    std::size_t longest = 1;
    while (longest * longest < units) {
        ++longest;
    }
    std::u16string text;
    for (std::size_t line = 1; line <= longest; ++line) {
        text += repeated(u"1,", 2 * (up ? line : longest + 1 - line)) + u'\n';
    }
    return text;
}

/// Columns of digits and words, then lines of blanks, then ends of text.
std::u16string aligned_with_tail(std::size_t units) {
    return repeated(u"12 ab\n", units / 3) + repeated(u"\n", units / 3) + u'x' +
           std::u16string(units / 3, textio::end_of_text);
}

options with_blanks(const char16_t* whitespace) {
    options reading;
    reading.whitespace = whitespace;
    return reading;
}

options with_widths(std::vector<std::size_t> widths, std::uint8_t rule = 0) {
    options reading;
    reading.field_widths = std::move(widths);
    reading.partial_field_rule = rule;
    return reading;
}

options with_comments(std::vector<std::u16string> style) {
    options reading;
    reading.comment_style = std::move(style);
    return reading;
}

options with_rules(std::uint8_t consecutive, std::uint8_t leading, std::uint8_t trailing) {
    options reading;
    reading.consecutive_delimiters_rule = consecutive;
    reading.leading_delimiters_rule = leading;
    reading.trailing_delimiters_rule = trailing;
    return reading;
}

options with_line_endings(std::vector<std::u16string> line_endings) {
    options reading;
    reading.line_endings = std::move(line_endings);
    return reading;
}

const Shape shapes[] = {
    // Ordinary ones, to tell what the machine makes of more memory.
    {"a table", [](std::size_t n) { return Input{table_of_units({}, n)}; }},
    {"one field", [](std::size_t n) { return Input{RandomSource().letters(n)}; }},
    {"one line of fields", [](std::size_t n) { return Input{repeated(u"ab,", n)}; }},
    {"empty lines", [](std::size_t n) { return Input{repeated(u"\n", n)}; }},
    {"delimiters", [](std::size_t n) { return Input{repeated(u",", n)}; }},
    {"quotes", [](std::size_t n) { return Input{repeated(u"\"", n)}; }},
    {"blanks", [](std::size_t n) { return Input{repeated(u" ", n)}; }},
    {"ends of text inside lines",
     [](std::size_t n) { return Input{repeated(u"a\uFFFF\uFFFF\n", n)}; }},
    // Columns.
    {"short lines, then many columns",
     [](std::size_t n) { return Input{repeated(u"a,1\n", n / 2) + repeated(u",", n / 2)}; }},
    {"many columns, then short lines",
     [](std::size_t n) {
         return Input{repeated(u"1,", n / 2) + u'\n' + repeated(u"a,1\n", n / 2)};
     }},
    {"ever more columns", [](std::size_t n) { return Input{staircase(n, true)}; }},
    {"ever fewer columns", [](std::size_t n) { return Input{staircase(n, false)}; }},
    {"a long line between blank columns",
     [](std::size_t n) { return Input{repeated(u"ab  12\n", n / 2) + repeated(u"a ", n / 2)}; }},
    // Quotes, comments and delimiters that begin and do not end.
    {"unclosed quotes", [](std::size_t n) { return Input{repeated(u"\",\"a\n", n)}; }},
    {"unclosed block comments",
     [](std::size_t n) {
         return Input{repeated(u"/*", n), with_comments({u"/*", u"*/"})};
     }},
    {"block comments and one line",
     [](std::size_t n) {
         return Input{repeated(u"/**/", n), with_comments({u"/*", u"*/"})};
     }},
    {"block comments between rows",
     [](std::size_t n) {
         return Input{repeated(u"/*\n*/1,2\n", n), with_comments({u"/*", u"*/"})};
     }},
    {"a long opener that never ends",
     [](std::size_t n) {
         return Input{repeated(u"/", n), with_comments({std::u16string(n / 4, u'/') + u'x'})};
     }},
    {"a long closer that never ends",
     [](std::size_t n) {
         return Input{u'#' + repeated(u"/", n),
                      with_comments({u"#", std::u16string(n / 4, u'/') + u'x'})};
     }},
    {"a long line ending that never ends",
     [](std::size_t n) {
         return Input{repeated(u"/", n),
                      with_line_endings({std::u16string(n / 4, u'/') + u'x', u"\n"})};
     }},
    // Blanks that end lines.
    {"empty lines that are blanks",
     [](std::size_t n) {
         return Input{repeated(u"\n", n), with_blanks(u" \t\r\n")};
     }},
    {"empty lines that are blanks, then delimiters",
     [](std::size_t n) {
         Input input{repeated(u"\n", n / 2) + repeated(u",", n / 2), with_rules(0, 1, 0)};
         input.reading.whitespace += u'\n';
         return input;
     }},
    {"blanks that end lines",
     [](std::size_t n) {
         return Input{repeated(u" ", n), with_line_endings({u" ", u"\t"})};
     }},
    // Fixed widths.
    {"ends of text behind aligned lines",
     [](std::size_t n) {
         Input input{aligned_with_tail(n)};
         input.reading.layout_hint = textio::parser::layout::fixed_width;
         return input;
     }},
    {"ends of text, widths of zero",
     [](std::size_t n) {
         return Input{aligned_with_tail(n), with_widths({0, SIZE_MAX})};
     }},
    {"ends of text, huge width",
     [](std::size_t n) {
         return Input{aligned_with_tail(n), with_widths({SIZE_MAX}, drop_mark_2)};
     }},
    {"ends of text that end lines",
     [](std::size_t n) {
         Input input{repeated(u"ab\uFFFF", n / 2) + std::u16string(n / 2, textio::end_of_text),
                     with_widths({SIZE_MAX}, drop_mark_2)};
         input.reading.line_endings = {u"\uFFFF"};
         return input;
     }},
    // Rules.
    {"delimiters, dropped",
     [](std::size_t n) {
         return Input{u"a,b" + repeated(u",", n), with_rules(0, 0, 1)};
     }},
    {"delimiters between text, dropped",
     [](std::size_t n) {
         return Input{repeated(u",,,,,,a", n), with_rules(0, 0, 1)};
     }},
    {"delimiters, an error put off",
     [](std::size_t n) {
         return Input{repeated(u",", n), with_rules(2, 0, 1)};
     }},
    {"delimiters, merged and skipped",
     [](std::size_t n) {
         return Input{repeated(u",,a", n), with_rules(1, 1, 1)};
     }},
    // Long options.
    {"many line endings",
     [](std::size_t n) {
         return Input{table_of_units({}, n), with_line_endings(different_strings(n / 8))};
     }},
    {"many blanks",
     [](std::size_t n) {
         return Input{repeated(u"a,\u4801\n", n), with_blanks(different_units(n / 32).c_str())};
     }},
    {"many delimiters",
     [](std::size_t n) {
         Input input{repeated(u"\u4000 ", n)};
         input.reading.delimiters = different_strings(n / 8);
         return input;
     }},
};

template <class Reader>
void read(const Input& input) {
    textio::output::DetectionOutputBuilder builder;
    builder.field_array = std::make_unique<textio::FieldArray>();
    builder.whitespace = std::make_unique<std::u16string>(input.reading.whitespace);
    Field text(input.text);
    try {
        read_records(input.reading, Reader(input.reading), SIZE_MAX, SIZE_MAX, text, builder);
    } catch (const textio::parser::exception::parser_exception&) {
        return; // an error is an answer too
    }
}

void pick(const Input& input) {
    const zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
    textio::detection::StrategySelector selector(input.reading, type_options);
    static_cast<void>(selector.pick_strategy(Field(input.text), SIZE_MAX));
}

} // namespace

std::vector<GrowthCase> text_cases() {
    const std::pair<const char*, void (*)(const Input&)> operations[] = {
        {"pick_strategy", pick},
        {"delimited", read<textio::parser::DelimitedRecordReader>},
        {"fixed width", read<textio::parser::FixedWidthRecordReader>},
        {"lines", read<textio::parser::LineRecordReader>},
    };
    std::vector<GrowthCase> cases;
    for (const Shape& shape : shapes) {
        for (const auto& [operation, run] : operations) {
            cases.push_back({std::string(operation) + ": " + shape.name,
                             [make = shape.make, run = run](std::size_t units) {
                                 const auto input = std::make_shared<Input>(make(units));
                                 if (input->reading.delimiters.empty()) {
                                     input->reading.delimiters = {u","};
                                 }
                                 if (input->reading.field_widths.empty()) {
                                     input->reading.field_widths = {2, 8};
                                 }
                                 return [input, run] { run(*input); };
                             }});
        }
    }
    return cases;
}

} // namespace bench
