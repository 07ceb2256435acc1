/// \file
/// What a cell looks like, judged from its text alone and in one look.
#pragma once

#include "address.hpp"
#include "advice/date_shapes.hpp"

#include <array>
#include <cstdint>
#include <string_view>

namespace textio::advice {

/// What a cell looks like. A cut in the wrong place shows in the last five.
enum class CellKind : std::uint8_t {
    missing,   ///< nothing, or a text that stands for nothing
    number,    ///< a number with either decimal mark, with or without thousands separators
    date,      ///< a date, a time, or a duration
    quoted,    ///< a text in quotes from end to end
    word,      ///< one word or code
    words,     ///< several words
    separated, ///< a text with a sign inside that mostly separates fields
    gap,       ///< a text with a run of blanks inside
    broken     ///< half a pair of quotes, or nothing but separators
};

inline constexpr std::size_t cell_kinds = 9;

/// Whether it is the kind of numbers or dates.
[[nodiscard]] constexpr bool is_typed(CellKind kind) noexcept {
    return kind == CellKind::number || kind == CellKind::date;
}

/// Whether `text` is empty, or stands for no value in many files: `NA`, `null`, `-`, and the like.
[[nodiscard]] bool stands_for_nothing(std::u16string_view text) noexcept;

/// Whether such a text, if it is not empty, may begin with the unit.
[[nodiscard]] constexpr bool begins_like_nothing(char16_t unit) noexcept {
    constexpr std::u16string_view units = u"-?.*Nn#\\(";
    return units.find(unit) != std::u16string_view::npos;
}

/// Whether a trimmed text is an address, of a page or of a person, and nothing else.
[[nodiscard]] bool is_single_value(std::u16string_view text) noexcept;

/// Whether a trimmed text holds three or more words of letters, some in lower case, and one blank
/// between each two of its parts.
[[nodiscard]] bool reads_like_a_sentence(std::u16string_view text) noexcept;

/// What was found out about the cells of a text. Its readings share many of them. A memory belongs
/// to one thread, and the text must outlive it.
class CellMemory {
public:
    /// `text` is where the text begins. Places in it are counted from there, so that a text gives
    /// the same answer wherever it lies.
    CellMemory(const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
               const char16_t* text)
        : dates_(type_options), text_(text) {}

    [[nodiscard]] DateShapes& dates() { return dates_; }

private:
    friend class CellJudge;

    struct Known {
        const char16_t* begin = nullptr;
        std::uint32_t size = 0;
        char16_t quote = 0; ///< under which it was judged
        CellKind kind = CellKind::missing;

        [[nodiscard]] bool is_of(std::u16string_view text, char16_t mark) const {
            return begin == text.data() && size == text.size() && quote == mark;
        }
    };

    /// Each place in the text has one of these, which others may take over.
    [[nodiscard]] Known& known_at(const char16_t* begin) {
        return known_[(address_of(begin) - address_of(text_)) / sizeof(char16_t) % known_.size()];
    }

    DateShapes dates_;
    const char16_t* text_;
    std::array<Known, 256> known_;
};

/// Judges cells. A judge belongs to one thread.
class CellJudge {
public:
    /// `memory` must outlive the judge. `quote` is 0 for none.
    CellJudge(CellMemory& memory, char16_t quote) : memory_(&memory), quote_(quote) {}

    /// What `cell`, blanks and quotes included, looks like.
    [[nodiscard]] CellKind judge(std::u16string_view cell);

private:
    [[nodiscard]] CellKind judge_filled(std::u16string_view text);

    CellMemory* memory_;
    char16_t quote_;
};

} // namespace textio::advice
