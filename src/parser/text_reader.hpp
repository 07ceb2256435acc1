/// \file
/// Reads a text in several goes under one layout, whichever it is.
#pragma once

#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/strategy.hpp"

#include <cstddef>
#include <memory>

namespace textio::parser {

/// A reader with the array that it fills. `lines` gives what the last call of `read` found; all
/// else can be called at any time.
class TextReader {
public:
    /// How far a read came.
    struct Counts {
        std::size_t rows;
        std::size_t lines;
    };

    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;
    virtual ~TextReader() = default;

    /// The reader of a layout. The options must outlive it, stay as they are, and hold no rule that
    /// can fail.
    static std::unique_ptr<TextReader> make(enums::StrategyMode mode, const options& options);

    /// Reads up to `rows` rows and `lines` lines of `text` anew, and moves `text` to what was not
    /// read. With a limit of lines, that can be what follows a block comment on its line, where no
    /// further read may start; with a limit of rows alone, it is always the start of a line.
    virtual Counts read(Field& text, std::size_t rows, std::size_t lines) = 0;

    /// The lines that must be read of `text` to come to the start of a line again: more than one if
    /// a block comment of several lines stands there.
    [[nodiscard]] virtual std::size_t least_lines(const Field& text) const = 0;

    /// Of `text`, to which more will come: lines that end within so many units stay as they are.
    [[nodiscard]] virtual std::size_t settled_units(const Field& text) const = 0;

    /// Whether nothing but blanks stands on the line from `at` of `text` on.
    [[nodiscard]] virtual bool is_rest_blank(const Field& text, std::size_t at) const = 0;

    /// Whether a line of `text` ends at `at` for certain; many other lines do too.
    [[nodiscard]] bool clearly_ends_at(const Field& text, std::size_t at) const noexcept {
        return at == text.size || text.data[at] == usual_line_end_;
    }

    /// Where the next line of `text` starts, counted from `from`; `text.size` if none does.
    [[nodiscard]] virtual std::size_t next_line(const Field& text, std::size_t from) const = 0;

    /// To be called before another text stands where one stood that was asked about.
    virtual void forget_text() const noexcept = 0;

    /// Whether a quote stands in `text`, and so records may be longer than a line.
    [[nodiscard]] virtual bool has_quotes(const Field& text) const = 0;

    /// The lines that the last read gave, as a sample has them.
    [[nodiscard]] const FieldArray& lines() const noexcept { return *builder_.field_array; }

protected:
    explicit TextReader(char32_t usual_line_end) noexcept : usual_line_end_(usual_line_end) {}

    char32_t usual_line_end_; ///< one unit that is a line ending by itself, or none
    output::DetectionOutputBuilder builder_;
};

} // namespace textio::parser
