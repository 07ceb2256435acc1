/// \file
/// Options that are odd in the ways that the short way through plain records has to notice. The
/// test and the fuzz target that compare it with the full rules choose from the same.
#pragma once

#include "textio/options.hpp"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace test {

/// Options of which `choose(count)`, a number below `count`, picks each value. What is usual stands
/// more than once in a list.
template <class Choose>
textio::parser::options odd_options(Choose choose) {
    using Strings = std::vector<std::u16string>;
    const auto one_of = [&choose](const auto& values) { return values[choose(values.size())]; };
    const std::array<Strings, 8> delimiters{{{u","}, {u","}, {u" ", u"\t"}, {u" ", u"\t"}, {u";", u","}, {u",,"}, {u"\""}, {}}};
    const std::array<std::u16string, 4> blanks{u" \t", u"", u"\u00A0", u" ,\n"};
    const std::array<Strings, 5> line_endings{{{u"\r\n", u"\n", u"\r"}, {u"\n"}, {u"\r\n", u"\n"}, {u"\r\n"}, {}}};
    const std::array<Strings, 9> comments{
        {{}, {u"#"}, {u"#", u"#"}, {u"#", u"x,,"}, {u"#,", u",#"}, {u",#", u"x"}, {u"#", u""}, {u"#", u"\nx"}, {u"##x"}}};
    const std::array<std::vector<std::size_t>, 3> widths{{{3}, {2, 5, 1}, {4, SIZE_MAX}}};
    const std::array<std::uint8_t, 3> rules{0, 0, 1};

    textio::parser::options options;
    options.delimiters = one_of(delimiters);
    options.whitespace = one_of(blanks);
    if (options.delimiters.size() == 2 && choose(4) != 0) {
        options.whitespace.assign(1, u'\u00A0'); // blanks that separate must be none
    }
    options.line_endings = one_of(line_endings);
    options.comment_style = one_of(comments);
    options.empty_line_rule = choose(2) == 0 ? textio::parser::empty_line::keep : textio::parser::empty_line::skip;
    options.consecutive_delimiters_rule = one_of(rules);
    options.leading_delimiters_rule = one_of(rules);
    options.trailing_delimiters_rule = one_of(rules);
    options.partial_field_rule = one_of(std::array<std::uint8_t, 5>{0, 0, 0, 1, 4});
    options.field_widths = one_of(widths);
    return options;
}

} // namespace test
