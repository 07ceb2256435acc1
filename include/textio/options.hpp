/// \file
/// The two records that a host fills: how a text is to be read, and how the text of one field is to
/// be judged. Both are plain values; a default one is a useful start for an unknown text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace textio::parser {

/// Values of `options::consecutive_delimiters_rule`.
namespace consecutive_delimiters {
inline constexpr std::uint8_t separate = 0; ///< two in a row have an empty field between them
inline constexpr std::uint8_t merge = 1;    ///< a run counts as one
inline constexpr std::uint8_t error = 2;    ///< two in a row are an error
} // namespace consecutive_delimiters

/// Values of `options::empty_line_rule`.
namespace empty_line {
inline constexpr std::uint8_t skip = 0;  ///< leaves no trace in the sample
inline constexpr std::uint8_t keep = 1;  ///< becomes a line without fields, and is no row
inline constexpr std::uint8_t error = 2; ///< is an error
} // namespace empty_line

/// Values of `options::leading_delimiters_rule`.
namespace leading_delimiters {
inline constexpr std::uint8_t keep = 0;  ///< makes an empty first field
inline constexpr std::uint8_t skip = 1;  ///< passed over, also in front of a comment
inline constexpr std::uint8_t error = 2; ///< is an error
} // namespace leading_delimiters

/// Values of `options::trailing_delimiters_rule`.
namespace trailing_delimiters {
inline constexpr std::uint8_t keep = 0;  ///< empty fields at the end of a record stay
inline constexpr std::uint8_t drop = 1;  ///< they are removed
inline constexpr std::uint8_t error = 2; ///< they are an error
} // namespace trailing_delimiters

/// Values of `options::partial_field_rule`: what to do with a line that ends inside a fixed-width
/// field.
namespace partial_field {
inline constexpr std::uint8_t keep = 0;        ///< the short field is the record's last
inline constexpr std::uint8_t drop_mark_2 = 1; ///< the record ends without it and is marked 2
inline constexpr std::uint8_t drop_mark_3 = 2; ///< the record ends without it and is marked 3
inline constexpr std::uint8_t drop_mark_1 = 3; ///< the record ends without it and is marked 1
inline constexpr std::uint8_t read_on = 4;     ///< the field goes on in the next line
inline constexpr std::uint8_t error = 5;       ///< such a line is an error
} // namespace partial_field

/// Values of `options::layout_hint`.
namespace layout {
inline constexpr std::uint8_t open = 0;           ///< nothing is known
inline constexpr std::uint8_t no_fixed_width = 1; ///< fixed widths are not tried
inline constexpr std::uint8_t fixed_width = 2;    ///< fixed widths and nothing else
} // namespace layout

/// Values of `options::reader_kind`.
namespace record_reader {
inline constexpr std::uint8_t delimited = 0;   ///< delimited and space-aligned text
inline constexpr std::uint8_t fixed_width = 1; ///< fixed-width columns
inline constexpr std::uint8_t line = 3;        ///< one field per line
} // namespace record_reader

/// How a text is to be read. Detection never writes to the host's record: each strategy works on a
/// copy of its own, in which it fixes what its layout needs.
struct options {
    /// Strings that separate fields. Detection finds its own and does not start from these.
    std::vector<std::u16string> delimiters{};

    /// Strings that end a line. A read is linear with many of them, and with long ones. With more
    /// than eight, long ones among them can make it slower: at each unit of the text one of them
    /// may then be compared as far as it and the text are alike. The same holds for `delimiters`.
    std::vector<std::u16string> line_endings{u"\r\n", u"\n", u"\r"};

    /// Carried along for the host; nothing in the library reads it.
    std::vector<std::u16string> reader_list{};

    /// No string: the text has no comments. Two strings: opener and closer of a block comment. Any
    /// other number: the first string opens a comment that runs to the end of the line.
    std::vector<std::u16string> comment_style{u"#"};

    /// Code units that count as blank. There should be few: where each line is read as one field,
    /// its units may be compared with each of them.
    std::u16string whitespace = u" \t";

    /// If not empty, its first code unit is never tried as a delimiter. The default keeps decimal
    /// points from passing for delimiters; a host with another decimal mark puts that here, which
    /// `set_number_marks` does along with `TypeAnalyzerOptions::decimal_separator`.
    std::u16string excluded_delimiter = u".";

    std::u16string reader_text_a{}; ///< carried along like `reader_list`
    std::u16string reader_text_b{}; ///< carried along like `reader_list`

    /// What the host knows about the layout: one of the values of namespace `layout`.
    std::uint8_t layout_hint = layout::open;

    /// Widths of fixed-width fields, in code units. Read only under `layout::fixed_width`.
    std::vector<std::size_t> field_widths{};

    /// Lines at the start that are not data; `SIZE_MAX` means not decided.
    std::size_t header_lines = SIZE_MAX;

    /// The number of variables to look for, unless `skip_variable_count_rule` is set.
    std::size_t expected_variables = 0;

    std::size_t reader_count_a = 0; ///< carried along like `reader_list`
    std::size_t reader_count_b = 0; ///< carried along like `reader_list`
    std::size_t reader_count_c = 0; ///< carried along like `reader_list`

    /// Written by the strategies: one of the values of namespace `record_reader`.
    std::uint8_t reader_kind = record_reader::delimited;

    /// The quote character; it is never tried as a delimiter.
    char16_t quote = u'"';

    std::uint8_t consecutive_delimiters_rule = consecutive_delimiters::separate; ///< delimited
    std::uint8_t empty_line_rule = empty_line::keep;                             ///< all readers
    std::uint8_t reader_flag = 0; ///< carried along like `reader_list`
    std::uint8_t leading_delimiters_rule = leading_delimiters::keep;   ///< delimited only
    std::uint8_t trailing_delimiters_rule = trailing_delimiters::keep; ///< delimited only
    std::uint8_t partial_field_rule = partial_field::keep;             ///< fixed width only

    /// Carried along for the host; detection searches for delimiters whatever it says.
    bool detect_delimiters = true;

    /// The number of header lines is to be found.
    bool detect_header_lines = true;

    /// `expected_variables` is not known, so candidates are not compared with it.
    bool skip_variable_count_rule = true;
};

} // namespace textio::parser

namespace zentor::io::text::typedetection {

/// How the text of a field is to be judged.
struct TypeAnalyzerOptions {
    char16_t thousands_separator = 0;             ///< taken out of numbers; 0 means none
    char16_t decimal_separator = u'.';            ///< the decimal mark; see `set_number_marks`
    std::u16string exponent_characters = u"eEdD"; ///< what may introduce an exponent
    bool trim_non_numeric = false;                ///< look for a number inside other text
    std::u16string datetime_context{};            ///< handed on to `is_datetime` as it is
    /// Trimmed from both ends of a field, whose blanks there are compared with each of these units.
    std::u16string whitespace = u" \t";
    std::vector<std::u16string> treat_as_missing{}; ///< whole texts that count as no value
};

} // namespace zentor::io::text::typedetection

namespace textio {

/// Tells both records how numbers are written, as in `set_number_marks(options, type_options, u',',
/// u'.')` for 1.234,50. The decimal mark takes the place of the other one: it stands inside numbers
/// and is never tried as a delimiter. `thousands_separator` may be tried as one; 0 means none.
inline void set_number_marks(parser::options& options,
                             zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                             char16_t decimal_mark, char16_t thousands_separator = 0) {
    options.excluded_delimiter.assign(1, decimal_mark);
    type_options.decimal_separator = decimal_mark;
    type_options.thousands_separator = thousands_separator;
}

} // namespace textio
