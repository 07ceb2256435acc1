/// \file
/// Reads a text with a record loop and tells on one line what came of it.
#pragma once

#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"
#include "parser/parser_exception.hpp"
#include "support/text.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace test {

/// Options without comments, with a comma as delimiter.
inline textio::parser::options comma_options() {
    return {.delimiters = {u","}, .comment_style = {}};
}

struct Request {
    std::size_t rows = SIZE_MAX;
    std::size_t lines = SIZE_MAX;
    bool x_is_blank = false; ///< to the builder, beside the blanks of the options
};

/// The sample, then consumed units, lines and rows; or the sample so far and the error.
template <class Reader>
std::string reading_with(const Reader& reader, std::u16string_view text, const textio::parser::options& options, Request request,
                         bool limit_fields = true) {
    using namespace textio::parser;
    textio::output::DetectionOutputBuilder builder;
    builder.field_array = std::make_unique<textio::FieldArray>();
    builder.whitespace = std::make_unique<std::u16string>(options.whitespace + (request.x_is_blank ? u"x" : u""));
    builder.limit_fields = limit_fields;
    builder.field_limit = limit_fields ? reader.field_limit : SIZE_MAX;
    // Whoever reads past the end of the text meets a quote.
    const std::u16string units = std::u16string(text) + options.quote;
    textio::Field view(units.data(), text.size());
    const auto failed = [&](const char* name, const exception::parser_exception& error) {
        return shown(*builder.field_array) + " " + name + " record " + std::to_string(error.record) + " field " +
               std::to_string(error.field) + shown(error.text) + shown(error.detail);
    };
    try {
        const ReadCounts counts = read_records(options, reader, request.rows, request.lines, view, builder);
        return shown(*builder.field_array) + " " + std::to_string(counts.consumed) + " " + std::to_string(counts.lines) + " " +
               std::to_string(counts.rows);
    } catch (const exception::empty_line_rule& error) {
        return failed("empty line", error);
    } catch (const exception::leading_delimiters_error& error) {
        return failed("leading", error);
    } catch (const exception::trailing_delimiters_error& error) {
        return failed("trailing", error);
    } catch (const exception::consecutive_delimiters_error& error) {
        return failed("consecutive", error);
    } catch (const exception::partial_field_error& error) {
        return failed("partial", error);
    }
}

struct ReadCase {
    const char* name;
    std::u16string text;
    std::string expected; ///< as `reading_with` tells it
    textio::parser::options options = comma_options();
    Request request{};
};

/// Fields are not limited, so what stands behind the last width shows as well.
template <class Reader>
void expect_readings(const std::vector<ReadCase>& cases) {
    for (const ReadCase& c : cases) {
        EXPECT_EQ(reading_with(Reader(c.options), c.text, c.options, c.request, false), c.expected)
            << typeid(Reader).name() << " " << c.name << ": " << shown(c.text);
    }
}

} // namespace test
