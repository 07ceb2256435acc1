/// \file
/// Reads a text in batches of lines that no further text can change.
#pragma once

#include "parser/text_reader.hpp"
#include "reading/window.hpp"

#include <cstddef>
#include <memory>
#include <optional>

namespace textio::reading {

/// Reads a text in batches that fit into the cache. A line is settled once no text that may still
/// come can change how it is read. A batch is made to end before the first line that is not
/// settled; if it reaches one all the same, it is read again, either shorter or after more text has
/// come.
///
/// The order of calls:
///
///     { pass_lines } { next }
class Batches {
public:
    /// What became of a call of `next`.
    enum class Outcome : std::uint8_t { lines, end_of_text, end_mark, too_long };

    /// The options must outlive the batches.
    Batches(enums::StrategyMode mode, const parser::options& options, Window window,
            std::size_t chunk_units, std::size_t longest_record);

    /// Passes so many lines of the text, whatever they hold. `count` becomes the number left.
    void pass_lines(std::size_t& count);

    /// Reads the next batch, which has at least one line.
    Outcome next();

    /// The batch.
    [[nodiscard]] const FieldArray& lines() const noexcept { return reader_->lines(); }
    [[nodiscard]] const Field& text() const noexcept { return text_; }
    [[nodiscard]] const parser::TextReader& reader() const noexcept { return *reader_; }

    /// Whether the text ends with the batch.
    [[nodiscard]] bool is_last() const noexcept {
        return window_.is_last() && window_.ahead().size == 0;
    }

private:
    [[nodiscard]] std::size_t lines_to_read(std::size_t units) const noexcept;
    std::optional<Outcome> read_ahead(const Field& ahead);
    bool read_some(const Field& ahead, std::size_t settled);
    bool read_least(const Field& ahead, std::size_t settled);
    bool accept(const Field& ahead, const Field& rest, std::size_t settled);
    void get_more(std::size_t held);
    void fill(std::size_t units);

    std::unique_ptr<parser::TextReader> reader_;
    const bool has_blocks_; ///< comments are blocks, behind which text may follow
    const std::size_t chunk_units_;
    const std::size_t longest_record_;
    Window window_;
    Field text_;
    double units_per_line_ = 0x800; ///< of the last batch; the first one is to be small
};

} // namespace textio::reading
