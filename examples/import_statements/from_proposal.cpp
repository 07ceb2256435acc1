#include "from_proposal.hpp"

#include "column_types.hpp"
#include "survey.hpp"

#include <textio/reading.hpp>
#include <textio/utf8.hpp>

#include <algorithm>

namespace import_statements {

namespace {

using textio::advice::Proposal;
using textio::enums::StrategyMode;
namespace parser = textio::parser;

Kind kind_of(StrategyMode mode) {
    switch (mode) {
    case StrategyMode::delimited:
        return Kind::delimited;
    case StrategyMode::space_aligned:
        return Kind::aligned;
    case StrategyMode::fixed_width:
        return Kind::fixed_width;
    case StrategyMode::line_reader:
        break;
    }
    return Kind::lines;
}

void describe_layout(Table& table, const Proposal& proposal) {
    const parser::options& options = proposal.strategy->options();
    table.kind = kind_of(proposal.strategy->mode());
    if (table.kind == Kind::delimited) {
        table.delimiter = utf8_of(options.delimiters.front());
        table.troubles.odd_delimiters =
            options.delimiters.size() > 1 ||
            options.consecutive_delimiters_rule != parser::consecutive_delimiters::separate;
    }
    const bool has_quote = options.quote != 0 && table.kind != Kind::lines;
    table.quote = has_quote ? utf8_of({&options.quote, 1}) : std::string();
    if (!options.comment_style.empty()) {
        table.comment = utf8_of(options.comment_style.front());
        table.block_comments = options.comment_style.size() == 2;
    }
    if (proposal.decimal_mark != 0) {
        table.decimal = utf8_of({&proposal.decimal_mark, 1});
    }
    if (proposal.thousands_separator != 0) {
        table.thousands = utf8_of({&proposal.thousands_separator, 1});
    }
    table.skipped_lines = proposal.first_data_line;
    for (const std::u16string& missing : proposal.type_options.treat_as_missing) {
        table.missing.push_back(utf8_of(missing));
    }
}

/// Rows can have more cells than the table has columns; no cell is to be lost.
std::size_t most_cells(const Proposal& proposal, const textio::Field& text) {
    std::size_t most = std::max<std::size_t>(proposal.columns.size(), 1);
    textio::reading::Reader reader(proposal, text);
    while (reader.next()) {
        most = std::max(most, reader.fields().size());
    }
    return most;
}

/// The columns of the proposal with their names and, of fixed widths, their places.
std::vector<Column> columns_of(const Proposal& proposal, Kind kind, std::size_t count) {
    const auto& widths = proposal.strategy->options().field_widths;
    std::vector<Column> columns(count);
    std::size_t place = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i < proposal.columns.size()) {
            columns[i].name = utf8_of(textio::advice::column_name(
                proposal.columns[i], proposal.strategy->options().quote));
        }
        columns[i].is_extra = i > 0 && i >= proposal.columns.size();
        if (kind == Kind::fixed_width && i < widths.size()) {
            columns[i].begin = place;
            place += widths[i];
            columns[i].end = place;
        }
    }
    return columns;
}

bool contains(const std::vector<std::string>& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Reads the text and judges each column by its values.
class Judging {
public:
    Judging(const Proposal& proposal, std::size_t columns)
        : missing_(proposal.type_options.treat_as_missing),
          judges_(columns, ColumnJudge({proposal.decimal_mark == 0 ? u'.' : proposal.decimal_mark,
                                        proposal.thousands_separator})) {}

    void add(const textio::reading::Reader& reader) {
        const auto fields = reader.fields();
        for (std::size_t i = 0; i < judges_.size(); ++i) {
            const auto value =
                i < fields.size()
                    ? textio::reading::cell_value(fields[i], reader.options(), buffer_)
                    : std::u16string_view();
            if (value.empty() ||
                std::find(missing_.begin(), missing_.end(), value) != missing_.end()) {
                judges_[i].add_missing();
            } else {
                judges_[i].add(value);
            }
        }
    }

    /// Puts the types into the columns, and into `table` what stands for no value among numbers and
    /// dates: the tools then take it so in every column.
    void tell(Table& table) const {
        bool has_groups = false;
        for (std::size_t i = 0; i < judges_.size(); ++i) {
            Column& column = table.columns[i];
            judges_[i].tell(column);
            has_groups = has_groups || column.is_grouped;
            for (const std::u16string& text : judges_[i].stand_ins()) {
                if (column.type != Type::text && !contains(table.missing, utf8_of(text))) {
                    table.missing.push_back(utf8_of(text));
                }
            }
        }
        // Where some numbers have separators, larger ones than those seen will have them too.
        for (Column& column : table.columns) {
            column.is_grouped = column.is_grouped || (has_groups && column.type == Type::number);
        }
    }

private:
    const std::vector<std::u16string>& missing_;
    std::vector<ColumnJudge> judges_;
    std::u16string buffer_;
};

} // namespace

std::string utf8_of(std::u16string_view text) {
    constexpr char32_t replacement = 0xFFFD;
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        const bool is_high = character >= 0xD800 && character < 0xDC00;
        if (is_high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            character = 0x10000 + ((character - 0xD800) << 10U) + (text[++i] - 0xDC00U);
        } else if (character >= 0xD800 && character < 0xE000) {
            character = replacement;
        }
        const auto add = [&result](char32_t byte) { result += static_cast<char>(byte); };
        if (character < 0x80) {
            add(character);
            continue;
        }
        const unsigned tail = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        constexpr char32_t leads[] = {0xC0, 0xE0, 0xF0};
        add(leads[tail - 1] | (character >> (6 * tail)));
        for (unsigned left = tail; left-- > 0;) {
            add(0x80U | ((character >> (6 * left)) & 0x3FU));
        }
    }
    return result;
}

Table table_from(const Proposal& proposal, const textio::Field& text) {
    Table table;
    describe_layout(table, proposal);
    table.columns = columns_of(proposal, table.kind, most_cells(proposal, text));
    Judging judging(proposal, table.columns.size());
    Survey survey(table, proposal.strategy->options(), text.view());
    textio::reading::Reader reader(proposal, text);
    std::size_t rows = 0;
    for (; reader.next(); ++rows) {
        judging.add(reader);
        survey.add(reader.fields());
    }
    if (rows == 0) {
        table.columns.clear();
        return table;
    }
    judging.tell(table);
    return table;
}

} // namespace import_statements
