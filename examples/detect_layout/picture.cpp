#include "picture.hpp"

#include "cell_text.hpp"
#include "detection.hpp"

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

constexpr std::string_view dim = "2";
constexpr std::array<std::string_view, 6> column_colours{"36", "33", "32", "35", "34", "31"};

class Picture {
public:
    Picture(const Detection& detection, const PictureStyle& style)
        : text_(detection.input->text().view()), sample_(*detection.layout->field_array()),
          style_(style), header_lines_(header_line_count(*detection.layout)),
          rows_(data_lines(*detection.layout)) {
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
            text += row_of_cells(rows_[row], false);
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
        widths_.assign(std::min(columns_, style_.width), 1);
        for (std::size_t row = 0; row < shown_rows_; ++row) {
            measure(rows_[row]);
        }
        for (std::size_t line = first_header_line(); line < header_lines_; ++line) {
            if (is_in_columns(line)) {
                measure(line);
            }
        }
    }

    void measure(std::size_t line) {
        const auto fields = sample_.line(line);
        for (std::size_t i = 0; i < std::min(fields.size(), widths_.size()); ++i) {
            widths_[i] = std::max(widths_[i], printable(fields[i].view(), style_.width).width);
        }
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
        return header_lines_ - std::min(header_lines_, most_header_lines);
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
        std::size_t place = 0;
        for (std::size_t line = 0; line < header_lines_; ++line) {
            const auto whole = take_line(line, place);
            if (line >= first) {
                text += is_in_columns(line) ? row_of_cells(line, true) : whole_line(whole);
            }
        }
        return text.empty() ? text : text + line_below_header();
    }

    /// The text of a line of the sample, which starts at `place`; moves `place` on to the next.
    /// Comments, which leave no fields in the sample, are found this way too.
    [[nodiscard]] std::u16string_view take_line(std::size_t line, std::size_t& place) const {
        const auto fields = sample_.line(line);
        const std::size_t start = place;
        if (!fields.empty()) {
            // Fields can hold line endings.
            place =
                static_cast<std::size_t>(fields.back().data - text_.data()) + fields.back().size;
        }
        const std::size_t end = std::min(text_.find_first_of(u"\r\n", place), text_.size());
        place = std::min(end + (text_.substr(end).starts_with(u"\r\n") ? 2 : 1), text_.size());
        return text_.substr(start, end - start);
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

    [[nodiscard]] std::string row_of_cells(std::size_t line, bool is_header) const {
        const auto fields = sample_.line(line);
        std::string text;
        for (std::size_t i = 0; i < widths_.size(); ++i) {
            const auto cell =
                i < fields.size() ? printable(fields[i].view(), widths_[i]) : CellText{};
            const bool is_last = i + 1 == columns_;
            text += i == 0 ? "" : painted(ruler, dim);
            text += painted(cell.utf8, is_header ? dim : column_colours[i % column_colours.size()]);
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

    std::u16string_view text_;
    const textio::FieldArray& sample_;
    PictureStyle style_;
    std::size_t header_lines_;
    std::vector<std::size_t> rows_; ///< lines of the sample with data
    std::size_t shown_rows_ = 0;
    std::size_t columns_ = 0;         ///< of the rows shown
    std::vector<std::size_t> widths_; ///< of the columns shown, in terminal columns
};

} // namespace

std::string draw_picture(const Detection& detection, const PictureStyle& style) {
    return Picture(detection, style).draw();
}

} // namespace detect_layout
