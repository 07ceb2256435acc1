#include "picture.hpp"

#include "cell_text.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>
#include <vector>

namespace detect_layout {

namespace {

/// Header lines shown; of more, the last, as the names of the columns stand there.
constexpr std::size_t most_header_lines = 6;

/// Columns are not squeezed below this.
constexpr std::size_t least_column_width = 5;

constexpr std::string_view ruler = " \u2502 ";
constexpr std::size_t ruler_width = 3;

using Cells = std::vector<std::u16string_view>;

constexpr std::string_view dim = "2";
constexpr std::string_view name_style = "1;"; ///< in front of a column's colour: bold
constexpr std::array<std::string_view, 6> column_colours{"36", "33", "32", "35", "34", "31"};

class Picture {
public:
    Picture(const Table& table, const PictureStyle& style)
        : table_(table), sample_(*table.sample), rows_(table.rows), style_(style) {
        shown_rows_ = std::min(rows_.size(), style_.data_rows);
        measure_columns();
        fit_columns();
    }

    [[nodiscard]] std::string draw() const {
        if (shown_rows_ == 0) {
            return {};
        }
        std::string text = header();
        for (std::size_t row = 0; row < shown_rows_; ++row) {
            text += row_of_cells(cells_of(rows_[row]), {});
        }
        if (const auto more = rows_.size() - shown_rows_; more > 0) {
            text += painted(fmt::format("\u22EE {} more in the sample", more), dim) + "\n";
        }
        return text;
    }

private:
    void measure_columns() {
        for (std::size_t row = 0; row < shown_rows_; ++row) {
            columns_ = std::max(columns_, sample_.line(rows_[row]).size());
        }
        columns_ = std::max(columns_, table_.names.size());
        widths_.assign(std::min(columns_, style_.width), 1);
        for (std::size_t row = 0; row < shown_rows_; ++row) {
            measure(rows_[row]);
        }
        for (std::size_t line = first_header_line(); line < table_.header_lines; ++line) {
            if (line == table_.names_line) {
                measure(table_.names);
            } else if (is_in_columns(line)) {
                measure(line);
            }
        }
    }

    void measure(std::size_t line) { measure(cells_of(line)); }

    void measure(const Cells& cells) {
        for (std::size_t i = 0; i < std::min(cells.size(), widths_.size()); ++i) {
            widths_[i] = std::max(widths_[i], printable(cells[i], style_.width).width);
        }
    }

    [[nodiscard]] Cells cells_of(std::size_t line) const {
        Cells cells;
        for (const auto& field : sample_.line(line)) {
            cells.push_back(field.view());
        }
        return cells;
    }

    /// Narrows the widest columns until all fit, and leaves the last ones out if they never do.
    void fit_columns() {
        const auto needed = [this] {
            const auto cells = std::accumulate(widths_.begin(), widths_.end(), std::size_t{0});
            const auto left_out_sign = widths_.size() < columns_ ? ruler_width + 1 : 0;
            return cells + ruler_width * (widths_.size() - 1) + left_out_sign;
        };
        while (widths_.size() > 1 && needed() > style_.width) {
            const auto widest = std::max_element(widths_.begin(), widths_.end());
            if (*widest > least_column_width) {
                --*widest;
            } else {
                widths_.pop_back();
            }
        }
    }

    [[nodiscard]] std::size_t first_header_line() const {
        return table_.header_lines - std::min(table_.header_lines, most_header_lines);
    }

    /// A header line belongs to the columns if it has a field for each.
    [[nodiscard]] bool is_in_columns(std::size_t line) const {
        return sample_.line(line).size() == columns_;
    }

    [[nodiscard]] std::string header() const {
        std::string text;
        const std::size_t first = first_header_line();
        if (first > 0) {
            text += painted(fmt::format("\u22EE {} above", first), dim) + "\n";
        }
        SampleWalk walk(table_.text, sample_);
        for (std::size_t line = 0; line < table_.header_lines; ++line) {
            const auto whole = walk.next();
            if (line >= first) {
                text += header_line(line, whole);
            }
        }
        return text.empty() ? text : text + line_below_header();
    }

    [[nodiscard]] std::string header_line(std::size_t line, std::u16string_view whole) const {
        if (line == table_.names_line) {
            return row_of_cells(table_.names, name_style);
        }
        return is_in_columns(line) ? row_of_cells(cells_of(line), dim) : whole_line(whole);
    }

    [[nodiscard]] std::string line_below_header() const {
        std::string text;
        for (std::size_t i = 0; i < widths_.size(); ++i) {
            text += i == 0 ? "" : "\u2500\u253C\u2500";
            for (std::size_t dash = 0; dash < widths_[i]; ++dash) {
                text += "\u2500";
            }
        }
        return painted(text, dim) + "\n";
    }

    /// A line that is not cut into the columns; nothing if it is blank.
    [[nodiscard]] std::string whole_line(std::u16string_view text) const {
        const auto shown = printable(text, style_.width);
        return shown.width == 0 ? "" : painted(shown.utf8, dim) + "\n";
    }

    /// A line of cells in `colour`, which is added to that of the columns unless it is dimmed.
    [[nodiscard]] std::string row_of_cells(const Cells& cells, std::string_view colour) const {
        std::string text;
        for (std::size_t i = 0; i < widths_.size(); ++i) {
            const auto cell = i < cells.size() ? printable(cells[i], widths_[i]) : CellText{};
            const bool is_last = i + 1 == columns_;
            text += i == 0 ? "" : painted(ruler, dim);
            const auto of_column = column_colours[i % column_colours.size()];
            text += painted(cell.utf8, colour == dim ? std::string(dim)
                                                     : fmt::format("{}{}", colour, of_column));
            text.append(is_last ? 0 : widths_[i] - cell.width, ' ');
        }
        if (widths_.size() < columns_) {
            text += painted(std::string(ruler) + "\u2026", dim);
        }
        return text + "\n";
    }

    [[nodiscard]] std::string painted(std::string_view text, std::string_view colour) const {
        return style_.colour ? fmt::format("\x1b[{}m{}\x1b[0m", colour, text) : std::string(text);
    }

    const Table& table_;
    const textio::FieldArray& sample_;
    const std::vector<std::size_t>& rows_; ///< lines of the sample with data
    PictureStyle style_;
    std::size_t shown_rows_ = 0;
    std::size_t columns_ = 0;         ///< of the rows shown
    std::vector<std::size_t> widths_; ///< of the columns shown, in terminal columns
};

} // namespace

std::string draw_picture(const Table& table, const PictureStyle& style) {
    return Picture(table, style).draw();
}

} // namespace detect_layout
