#include "advice/survey.hpp"

#include "advice/lines.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace textio::advice {

namespace {

constexpr std::size_t most_lines = 64;
constexpr std::size_t longest_line = 400; ///< code units of a line that are looked at
constexpr std::size_t ascii_units = 128;
constexpr std::size_t most_other_signs = 8;

/// Signs beyond ASCII that can stand between fields: marks, arrows and drawing, and private ones.
constexpr bool is_other_sign(char16_t unit) {
    return (unit >= 0x80 && unit <= 0xBF && unit != 0xAA && unit != 0xB5 && unit != 0xBA) ||
           unit == 0xD7 || unit == 0xF7 || (unit >= 0x2010 && unit <= 0x2BFF) ||
           (unit >= 0x3001 && unit <= 0x3004) || (unit >= 0xFE50 && unit <= 0xFE6F) ||
           (unit >= 0xFF01 && unit <= 0xFF1F) || (unit >= 0xE000 && unit <= 0xF8FF);
}

/// Counts the lines on which each sign stands.
class SignCounter {
public:
    void add_line(std::u16string_view line) {
        std::uint64_t low = 0; // a bit for each ASCII unit that the line holds
        std::uint64_t high = 0;
        ++line_;
        for (const char16_t unit : line) {
            const std::uint64_t bit = std::uint64_t{1} << (unit % mask_bits);
            low |= unit < mask_bits ? bit : 0;
            high |= unit >= mask_bits && unit < ascii_units ? bit : 0;
            if (unit >= ascii_units && is_other_sign(unit)) {
                count_other(unit);
            }
        }
        count_units(low & ~digits, 0);
        count_units(high & ~letters, mask_bits);
    }

    [[nodiscard]] std::vector<SignCount> signs() const {
        std::vector<SignCount> found;
        found.reserve(most_other_signs * 2);
        for (std::size_t unit = 0; unit < ascii_units; ++unit) {
            if (ascii_[unit] != 0) {
                found.push_back({static_cast<char16_t>(unit), ascii_[unit]});
            }
        }
        for (const Other& other : others_) {
            if (other.lines != 0) {
                found.push_back({other.sign, other.lines});
            }
        }
        return found;
    }

private:
    struct Other {
        char16_t sign = 0;
        std::uint32_t last_line = 0;
        std::uint32_t lines = 0;
    };

    static constexpr std::size_t mask_bits = 64;
    static constexpr std::uint64_t digits = 0x03FF'0000'0000'0000;  ///< among the first 64 units
    static constexpr std::uint64_t letters = 0x07FF'FFFE'07FF'FFFE; ///< among the next 64

    void count_units(std::uint64_t units, std::size_t first) {
        for (; units != 0; units &= units - 1) {
            ++ascii_[first + static_cast<std::size_t>(std::countr_zero(units))];
        }
    }

    /// Only the first few that appear are counted.
    void count_other(char16_t unit) {
        for (Other& other : others_) {
            if (other.sign == unit || other.lines == 0) {
                other.sign = unit;
                other.lines += other.last_line != line_ ? 1U : 0U;
                other.last_line = line_;
                return;
            }
        }
    }

    std::array<std::uint32_t, ascii_units> ascii_{};
    std::array<Other, most_other_signs> others_{};
    std::uint32_t line_ = 0;
};

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
    return lines.empty() ? 0 : static_cast<double>(count) / static_cast<double>(lines.size());
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
        const std::size_t blank = inside.find(u' ');
        const bool has_blank = blank != std::u16string_view::npos;
        survey.with_blank += has_blank ? 1U : 0U;
        survey.with_runs += (has_blank && inside.find(u"  ", blank) != std::u16string_view::npos) ||
                                    inside.find(u'\t') != std::u16string_view::npos
                                ? 1U
                                : 0U;
    }
    survey.signs = counter.signs();
    return survey;
}

} // namespace textio::advice
