#include "parser/field_scanner.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

namespace textio::parser {

FieldScanner::FieldScanner(const options& options, std::shared_ptr<Delim> delimiters,
                           std::shared_ptr<Delim> line_ends)
    : quote(options.quote), bounds(std::move(delimiters), std::move(line_ends)),
      whitespace(options.whitespace), blanks(whitespace),
      quotes(std::u16string_view(&options.quote, 1)) {}

namespace {

/// The position behind the quoted part that opens at `open`, or the end of the text.
std::size_t skip_quoted_part(const FieldScanner& scanner, const Field& text, std::size_t open) {
    std::size_t at = open;
    do {
        at = std::min(scanner.quotes.next(text, at + 1) + 1, text.size);
    } while (at < text.size && text.data[at] == scanner.quote);
    return at;
}

} // namespace

std::size_t scan_field(const FieldScanner& scanner, const Field& text, std::size_t start,
                       std::size_t& field_size) {
    std::size_t at = scanner.blanks.skip(text, start);
    if (at < text.size && text.data[at] == scanner.quote) {
        at = skip_quoted_part(scanner, text, at);
    }
    const Boundary boundary = scanner.bounds.find(text, at);
    field_size = boundary.at - start;
    return boundary.at + boundary.length;
}

} // namespace textio::parser
