/// \file
/// Where the plain fields of delimited text end.
#pragma once

#include "parser/delimited_reader.hpp"
#include "search/search_walk.hpp"

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace textio::parser {

/// Finds the ends of plain fields, from left to right, by walking to their stops.
template <class Walk>
class PlainFields {
public:
    PlainFields(const DelimitedRecordReader& reader, const PlainRecords& records, const Walk& stops)
        : blanks_(reader.blanks.set()), delimiters_(reader.guarded_delimiters.first_units()),
          line_ends_(reader.guarded_line_ends.first_units()), quote_(reader.options->quote),
          usual_delimiter_(delimiters_.units().empty() ? no_unit : delimiters_.units().front()),
          has_more_delimiters_(delimiters_.units().size() > 1), stops_(stops),
          text_end_(records.end()) {}

    /// The first stop from `begin` on, or the end of the text.
    const char16_t* next_stop(const char16_t* begin) { return stops_.next(begin); }

    /// The stop behind the last one.
    const char16_t* next_stop() { return stops_.next(); }

    /// Whether the stop behind the last one is known already, and that stop.
    [[nodiscard]] bool has_stop_at_hand() const { return stops_.has_hit_at_hand(); }
    const char16_t* stop_at_hand() { return stops_.hit_at_hand(); }

    /// Whether the last stop may begin a long run of delimiters.
    [[nodiscard]] bool is_at_run() const { return stops_.is_at_full_block(); }

    /// Where the field that begins at `begin` and whose first stop is `stop` ends: at a delimiter,
    /// at what may be a line ending, or at the end of the text. Null if the field is not plain.
    const char16_t* end_of_field(const char16_t* begin, const char16_t* stop) {
        return stop == text_end_ || !is_quote_or_end(*stop) ? stop : end_of_odd_field(begin, stop);
    }

    /// The quoted parts met so far, as long as the walk does not pass them by itself.
    [[nodiscard]] std::size_t quoted_parts() const { return quoted_parts_; }

    [[nodiscard]] const Walk& walk() const { return stops_; }

    /// Whether `unit` is the delimiter that nearly all layouts have alone. It is no quote then.
    [[nodiscard]] bool is_usual_delimiter(char16_t unit) const { return unit == usual_delimiter_; }

    [[nodiscard]] bool is_delimiter(char16_t unit) const {
        return unit == usual_delimiter_ || (has_more_delimiters_ && delimiters_.contains(unit));
    }

    /// Whether a delimiter stands at `at` and not the end of the text.
    [[nodiscard]] bool is_delimiter_at(const char16_t* at) const {
        return at != text_end_ && is_delimiter(*at);
    }

    /// Whether `unit` is a stop at which a field may go on.
    [[nodiscard]] bool is_quote_or_end(char16_t unit) const {
        return unit == quote_ || unit == end_of_text;
    }

    /// Whether the text or, perhaps, a line ends at `at`.
    [[nodiscard]] bool may_end_line(const char16_t* at) const {
        return at == text_end_ || line_ends_.contains(*at);
    }

private:
    /// The same for a field whose first stop is a quote or an end of text. Either means something
    /// only where the field begins, behind blanks; anywhere else it is text.
    const char16_t* end_of_odd_field(const char16_t* begin, const char16_t* stop) {
        if constexpr (std::is_same_v<Walk, UnquotedWalk>) {
            return nullptr; // from an irregular quote on, the walk cannot tell
        }
        if (std::all_of(begin, stop, [this](char16_t unit) { return blanks_.contains(unit); })) {
            if (*stop == end_of_text) {
                return nullptr;
            }
            const char16_t* const behind = behind_quoted_part(stop);
            ++quoted_parts_;
            if (behind != text_end_ && *behind == end_of_text) {
                return nullptr;
            }
            stop = stops_.next(behind);
        }
        while (stop != text_end_ && is_quote_or_end(*stop)) {
            stop = stops_.next();
        }
        return stop;
    }

    /// The place behind the quoted part that opens at `quote`, or the end of the text.
    const char16_t* behind_quoted_part(const char16_t* quote) {
        do {
            quote = stops_.next(quote + 1);
            while (quote != text_end_ && *quote != quote_) {
                quote = stops_.next();
            }
            quote += quote == text_end_ ? 0 : 1;
        } while (quote != text_end_ && *quote == quote_);
        return quote;
    }

    const UnitSet& blanks_;
    const UnitSet& delimiters_;
    const UnitSet& line_ends_; ///< the units with which line endings begin
    const char16_t quote_;
    const char32_t usual_delimiter_;
    const bool has_more_delimiters_;
    Walk stops_;
    std::size_t quoted_parts_ = 0;
    const char16_t* const text_end_;
};

/// Finds the ends of runs of delimiters, from left to right.
class RunEnds {
public:
    explicit RunEnds(const SearchWalk& others) : others_(others) {}

    /// Where the run of delimiters that may stand at `begin` ends.
    const char16_t* end_of_run(const char16_t* begin) {
        if (run_end_ == nullptr || run_end_ < begin) {
            run_end_ = others_.next(begin);
        }
        return run_end_;
    }

private:
    SearchWalk others_; ///< finds what is no delimiter
    const char16_t* run_end_ = nullptr;
};

} // namespace textio::parser
