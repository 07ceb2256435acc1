#include "table.hpp"

#include <algorithm>

namespace detect_layout {

namespace {

std::size_t count_line_ends(std::u16string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool is_end = text[i] == u'\n' || text[i] == u'\r';
        const bool is_half = text.substr(i).starts_with(u"\r\n");
        count += is_end && !is_half ? 1U : 0U;
    }
    return count;
}

/// The first line of the sample that begins on line `text_line` of the text, or behind it.
std::size_t sample_line_of(std::u16string_view text, const textio::FieldArray& sample,
                           std::size_t text_line) {
    SampleWalk walk(text, sample);
    std::size_t line = 0;
    while (line < sample.line_count() && walk.text_line() < text_line) {
        walk.next();
        ++line;
    }
    return line;
}

} // namespace

std::u16string_view SampleWalk::next() {
    const auto fields = sample_.line(line_);
    const std::size_t start = place_;
    if (!fields.empty()) {
        const auto& last = fields.back();
        place_ = static_cast<std::size_t>(last.data - text_.data()) + last.size;
    }
    const std::size_t end = std::min(text_.find_first_of(u"\r\n", place_), text_.size());
    place_ = std::min(end + (text_.substr(end).starts_with(u"\r\n") ? 2 : 1), text_.size());
    text_line_ += count_line_ends(text_.substr(start, place_ - start));
    ++line_;
    return text_.substr(start, end - start);
}

std::size_t SampleWalk::text_line() const {
    return text_line_ + count_line_ends(text_.substr(place_, start_of_next() - place_));
}

std::size_t SampleWalk::start_of_next() const {
    const auto fields = sample_.line(line_);
    return fields.empty()
               ? place_
               : std::max(place_, static_cast<std::size_t>(fields.front().data - text_.data()));
}

Table table_of(const Detection& detection) {
    Table table;
    table.text = detection.input->text().view();
    table.sample = detection.layout->field_array();
    table.header_lines = header_line_count(*detection.layout);
    table.rows = data_lines(*detection.layout);
    return table;
}

Table table_of(const Advised& advised) {
    const auto& best = advised.best();
    Table table;
    table.text = advised.input->text().view();
    table.sample = best.strategy->field_array();
    table.header_lines = sample_line_of(table.text, *table.sample, best.first_data_line);
    table.rows = filled_lines(*table.sample, table.header_lines);
    if (best.names_line != textio::advice::no_line) {
        table.names_line = sample_line_of(table.text, *table.sample, best.names_line);
        for (const auto& column : best.columns) {
            table.names.push_back(column.name);
        }
    }
    return table;
}

} // namespace detect_layout
