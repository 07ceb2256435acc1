#include "parser/field_scanner.hpp"

#include <algorithm>
#include <string_view>

namespace textio::parser {

namespace {

std::u16string special_units(const options& options, const Delim& line_ends) {
    std::u16string units(line_ends.first_units.begin(), line_ends.first_units.end());
    return units + options.whitespace + options.quote + end_of_text;
}

/// The position behind the quoted part that opens at `open`, or the end of the text.
std::size_t skip_quoted_part(const FieldScanner& scanner, const Field& text, std::size_t open) {
    std::size_t at = open;
    do {
        at = std::min(scanner.quotes.next(text, at + 1) + 1, text.size);
    } while (at < text.size && text.data[at] == scanner.quote);
    return at;
}

} // namespace

FieldScanner::FieldScanner(const options& options, const std::shared_ptr<Delim>& delimiters,
                           const std::shared_ptr<Delim>& line_ends)
    : quote(options.quote), bounds(delimiters, line_ends), whitespace(options.whitespace),
      blank_units(options.whitespace), quotes(std::u16string_view(&options.quote, 1)),
      special_starts(special_units(options, *line_ends)) {}

Boundary find_end_of_special_field(const FieldScanner& scanner, const Field& text,
                                   std::size_t start) {
    std::size_t at = skip_units(scanner.blank_units, text, start);
    if (at < text.size && text.data[at] == scanner.quote) {
        at = skip_quoted_part(scanner, text, at);
    }
    return scanner.bounds.find(text, at);
}

DelimiterRuns::DelimiterRuns(const std::shared_ptr<Delim>& delimiters)
    : delimiters_(delimiters),
      others_(delimiters_.first_units().units(), UnitSearch::Wanted::outside),
      only_lone_units_(delimiters_.only_lone_units()) {}

std::size_t DelimiterRuns::skip_strings(const Field& text, std::size_t position) const noexcept {
    while (position < text.size) {
        const std::size_t length = delimiters_.match_at(text, position);
        if (length == 0) {
            break;
        }
        position += length;
    }
    return position;
}

} // namespace textio::parser
