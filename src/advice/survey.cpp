#include "advice/survey.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

namespace textio::advice {

namespace {

constexpr std::size_t most_lines = 64;
constexpr std::size_t longest_line = 400; ///< code units of a line that are looked at
constexpr char16_t ascii_units = 128;
constexpr std::size_t most_other_signs = 8;

/// Signs beyond ASCII that can stand between fields: marks, arrows and drawing, and private ones.
constexpr std::array<UnitRange, 11> other_signs{{{0x80, 0xA9},
                                                 {0xAB, 0xB4},
                                                 {0xB6, 0xB9},
                                                 {0xBB, 0xBF},
                                                 {0xD7, 0xD7},
                                                 {0xF7, 0xF7},
                                                 {0x2010, 0x2BFF},
                                                 {0x3001, 0x3004},
                                                 {0xE000, 0xF8FF},
                                                 {0xFE50, 0xFE6F},
                                                 {0xFF01, 0xFF1F}}};

constexpr bool is_ascii_letter_or_digit(char16_t unit) {
    return ascii::is_letter(unit) || ascii::is_digit(unit);
}

/// Counts the lines on which each sign stands.
class SignCounter {
public:
    void add_line(std::u16string_view line) {
        ++line_;
        for (const char16_t unit : line) {
            if (unit < ascii_units) {
                ascii_[unit].add(line_);
            } else if (is_in(other_signs, unit)) {
                count_other(unit);
            }
        }
    }

    [[nodiscard]] std::vector<SignCount> signs() const {
        std::vector<SignCount> found;
        found.reserve(most_other_signs * 2);
        for (char16_t unit = 0; unit < ascii_units; ++unit) {
            add_sign(unit, ascii_[unit], found);
        }
        for (const Other& other : others_) {
            add_sign(other.sign, other.count, found);
        }
        return found;
    }

private:
    /// Counts lines, each of them once.
    struct LineCount {
        std::uint32_t last_line = 0;
        std::uint32_t lines = 0;

        void add(std::uint32_t line) {
            if (last_line != line) {
                last_line = line;
                ++lines;
            }
        }
    };

    struct Other {
        char16_t sign = 0;
        LineCount count;
    };

    static void add_sign(char16_t unit, const LineCount& count, std::vector<SignCount>& found) {
        if (count.lines != 0 && !is_ascii_letter_or_digit(unit)) {
            found.push_back({unit, count.lines});
        }
    }

    /// Only the first few that appear are counted.
    void count_other(char16_t unit) {
        auto* const other =
            std::find_if(others_.begin(), others_.end(), [unit](const Other& known) {
                return known.sign == unit || known.count.lines == 0;
            });
        if (other != others_.end()) {
            other->sign = unit;
            other->count.add(line_);
        }
    }

    std::array<LineCount, ascii_units> ascii_{};
    std::array<Other, most_other_signs> others_{};
    std::uint32_t line_ = 0;
};

/// Whether a trimmed line, which may have blanks, has two in a row or a tab.
bool has_run(std::u16string_view line, bool has_blank) {
    return (has_blank && holds(line, u"  ")) || holds(line, u'\t');
}

} // namespace

bool Survey::holds(char16_t sign) const noexcept {
    return share(sign) > 0;
}

double Survey::share(char16_t sign) const noexcept {
    const auto found = std::find_if(signs.begin(), signs.end(),
                                    [&](const SignCount& count) { return count.sign == sign; });
    return found == signs.end() ? 0 : share_of(found->lines);
}

double Survey::share_of(std::size_t count) const noexcept {
    return textio::advice::share_of(count, lines.size());
}

double Survey::share_of_common_delimiter() const noexcept {
    double most = 0;
    for (const char16_t sign : common_delimiters_of_files) {
        most = std::max(most, share(sign));
    }
    return most;
}

Survey survey_lines(const FieldArray& lines) {
    Survey survey;
    const std::size_t filled = lines.fields.size();
    const std::size_t first = filled / 2;
    survey.first = filled == 0 ? std::u16string_view() : lines.fields.front().view();
    const std::size_t step = (filled - first) / most_lines + 1;
    survey.lines.reserve(std::min(filled - first, most_lines));
    SignCounter counter;
    for (std::size_t field = first; field < filled; field += step) {
        const std::u16string_view line = lines.fields[field].view().substr(0, longest_line);
        const std::u16string_view inside = trimmed(line);
        if (inside.empty()) {
            continue;
        }
        survey.lines.push_back(line);
        counter.add_line(line);
        const bool has_blank = holds(inside, u' ');
        survey.with_blank += one_if(has_blank);
        survey.with_runs += one_if(has_run(inside, has_blank));
    }
    survey.signs = counter.signs();
    return survey;
}

} // namespace textio::advice
