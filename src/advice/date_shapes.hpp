/// \file
/// Which texts are dates, asked for once for each shape.
#pragma once

#include "textio/type_analyzer.hpp"

#include <array>
#include <cstddef>
#include <string_view>

namespace textio::advice {

/// Whether a unit stands between the parts of dates and times.
[[nodiscard]] constexpr bool stands_in_dates(char16_t unit) noexcept {
    return (unit >= u'-' && unit <= u'/') || unit == u':' || unit == u' ';
}

/// Two texts of the same length whose digits stand in the same places and which are alike in all
/// else.
[[nodiscard]] bool have_same_shape(std::u16string_view left, std::u16string_view right) noexcept;

/// Tells dates, times and durations. Remembers the last texts that were asked for: one that differs
/// from them in its digits alone is what they were. All readings of a text ask the same memory, for
/// they share many cells. It belongs to one thread, and the texts must outlive it.
class DateShapes {
public:
    explicit DateShapes(const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options)
        : analyzer_(type_options) {}
    DateShapes(const DateShapes&) = delete;
    DateShapes& operator=(const DateShapes&) = delete;
    ~DateShapes() = default;

    /// Whether a trimmed text is a date, a time, or a duration.
    [[nodiscard]] bool is_date(std::u16string_view text);

private:
    struct Answer {
        std::u16string_view text; ///< what was asked for; empty for nothing yet
        bool is_date = false;
    };

    zentor::io::text::typedetection::TypeAnalyzer<false> analyzer_;
    std::array<Answer, 64> answers_; ///< each shape has one place, which others may take over
    Answer* last_ = answers_.data();
};

} // namespace textio::advice
