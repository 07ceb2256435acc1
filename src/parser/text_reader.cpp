#include "parser/text_reader.hpp"

#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"
#include "search/unit_search.hpp"
#include "unseen_fields.hpp"

#include <algorithm>
#include <type_traits>

namespace textio::parser {

namespace {

std::size_t longest(const std::vector<std::u16string>& strings, std::size_t least) {
    for (const std::u16string& string : strings) {
        least = std::max(least, string.size());
    }
    return least;
}

/// The units that are skipped in front of a line, and those that can end a line, if some units are
/// both; otherwise nothing. Skipping can then go on over the end of a line.
std::u16string units_across_lines(const options& options) {
    const GuardedDelim line_ends(options.line_endings);
    const GuardedDelim delimiters(options.delimiters);
    const UnitSet skipped(options.whitespace + delimiters.first_units().units());
    return are_disjoint(line_ends.first_units(), skipped)
               ? std::u16string()
               : line_ends.first_units().units() + skipped.units();
}

template <class Reader>
class TextReaderOf final : public TextReader {
public:
    explicit TextReaderOf(const parser::options& options)
        : TextReader(GuardedDelim(options.line_endings).usual_unit()), options_(options),
          reader_(options), quotes_(std::u16string_view(&options.quote, 1)),
          across_lines_(units_across_lines(options)),
          lookahead_(longest(options.line_endings,
                             longest(options.delimiters, longest(options.comment_style, 1)))) {
        builder_.field_array = std::make_unique<FieldArray>();
        builder_.whitespace = std::make_unique<std::u16string>(options.whitespace);
        builder_.limit_fields = reader_.field_limit != SIZE_MAX;
        builder_.field_limit = reader_.field_limit;
    }

    Counts read(Field& text, std::size_t rows, std::size_t lines) override {
        FieldArray& array = *builder_.field_array;
        const std::size_t room = array.fields.capacity();
        free_without_a_look(array.fields);
        array.fields = {};
        array.fields.reserve(room);
        array.line_ends.clear();
        const ReadCounts counts = read_records(options_, reader_, rows, lines, text, builder_);
        return {counts.rows, counts.lines};
    }

    [[nodiscard]] std::size_t least_lines(const Field& text) const override {
        const std::size_t start = skip_to_content(reader_, text, 0);
        const std::size_t end = reader_.marks->skip_comment(text, start);
        return end <= start ? 1 : finish_comment(reader_, text, start, end).lines;
    }

    [[nodiscard]] std::size_t settled_units(const Field& text) const override {
        // Units of `end_of_text` at the end are not known yet: a field of fixed width ends before
        // them if nothing follows, and takes them in if more text comes.
        std::size_t known = text.size;
        while (known > 0 && text.data[known - 1] == end_of_text) {
            --known;
        }
        std::size_t settled = known - std::min(known, lookahead_);
        while (settled > 0 && across_lines_.contains(text.data[settled - 1])) {
            --settled;
        }
        return settled;
    }

    [[nodiscard]] bool is_rest_blank(const Field& text, std::size_t at) const override {
        const std::size_t content = reader_.blanks.skip(text, at);
        return text.unit_at(content) == end_of_text ||
               reader_.guarded_line_ends.match_at(text, content) != 0;
    }

    [[nodiscard]] std::size_t next_line(const Field& text, std::size_t from) const override {
        const UnitSearch& starts = reader_.marks->line_end_starts();
        for (std::size_t at = starts.next(text, from); at < text.size;
             at = starts.next(text, at + 1)) {
            if (const std::size_t length = reader_.guarded_line_ends.match_at(text, at);
                length != 0) {
                return std::min(at + length, text.size);
            }
        }
        return text.size;
    }

    void forget_text() const noexcept override {
        reader_.marks->forget_text();
        if constexpr (std::is_same_v<Reader, DelimitedRecordReader>) {
            reader_.guarded_delimiters.forget_text();
        }
    }

    [[nodiscard]] bool has_quotes(const Field& text) const override {
        return std::is_same_v<Reader, DelimitedRecordReader> && quotes_.next(text, 0) != text.size;
    }

private:
    const parser::options& options_;
    const Reader reader_;
    const UnitSearch quotes_;
    const UnitSet across_lines_;
    const std::size_t lookahead_; ///< units behind a line that can change how it is read
};

} // namespace

std::unique_ptr<TextReader> TextReader::make(enums::StrategyMode mode, const options& options) {
    switch (mode) {
    case enums::StrategyMode::fixed_width:
        return std::make_unique<TextReaderOf<FixedWidthRecordReader>>(options);
    case enums::StrategyMode::line_reader:
        return std::make_unique<TextReaderOf<LineRecordReader>>(options);
    default:
        return std::make_unique<TextReaderOf<DelimitedRecordReader>>(options);
    }
}

} // namespace textio::parser
