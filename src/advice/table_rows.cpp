#include "advice/table_rows.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"

#include <algorithm>

namespace textio::advice {

TableRows::TableRows(const Reading& reading, const FieldArray& lines, std::size_t first_line,
                     std::size_t last_line)
    : reading_(reading),
      sample_(reading.is_at_positions() ? lines : *reading.strategy->field_array()),
      columns_(reading.is_at_positions() ? reading.positions.starts.size() : reading.columns),
      next_(first_line),
      end_(last_line < sample_.line_count() ? last_line + 1 : sample_.line_count()),
      cells_(columns_) {}

bool TableRows::next() {
    while (next_ < end_) {
        line_ = next_++;
        const auto fields = sample_.line(line_);
        if (fields.empty()) {
            continue;
        }
        begin_ = fields.front().data;
        std::fill_n(cells_.begin(), fields_, std::u16string_view());
        if (reading_.is_at_positions()) {
            cut(fields.front().view());
        } else {
            take(fields);
        }
        return true;
    }
    return false;
}

void TableRows::cut(std::u16string_view text) {
    const auto& starts = reading_.positions.starts;
    place_ = text.data();
    fields_ = 0;
    while (fields_ < columns_ && starts[fields_] < text.size()) {
        cells_[fields_] = cell_at(text, reading_.positions, fields_);
        ++fields_;
    }
}

void TableRows::take(std::span<const Field> fields) {
    const std::size_t skipped = std::min(one_if(reading_.edges.leading), fields.size());
    fields_ = std::min(columns_, fields.size() - skipped);
    for (std::size_t column = 0; column < fields_; ++column) {
        cells_[column] = fields[column + skipped].view();
    }
    const auto filled = std::find_if(fields.begin(), fields.end(),
                                     [](const Field& field) { return field.size != 0; });
    place_ = filled == fields.end() ? nullptr : filled->data;
}

std::size_t first_table_line(const Reading& reading) {
    return reading.is_at_positions() ? reading.positions.first_line : reading.run.first_line;
}

std::size_t last_table_line(const Reading& reading) {
    if (reading.is_at_positions()) {
        return reading.positions.last_line;
    }
    return reading.grid.columns == 0 ? SIZE_MAX : reading.run.last_line;
}

} // namespace textio::advice
