#include "loading.hpp"

#include "file_text.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>
#include <string_view>

namespace sqlite_loader {

namespace {

using textio::advice::Proposal;
using zentor::io::text::typedetection::FieldClass;

constexpr std::size_t sampled_rows = 250;

std::u16string in_small_letters(std::u16string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    });
    return text;
}

std::u16string numbered(const std::u16string& text, std::size_t number) {
    const std::string digits = std::to_string(number);
    return text + u'_' + std::u16string(digits.begin(), digits.end());
}

/// SQLite tells names apart whatever their case, and wants each to have one.
std::vector<Column> columns_of(const Proposal& proposal) {
    std::vector<Column> columns;
    std::set<std::u16string> taken;
    std::map<std::u16string, std::size_t> copies;
    const char16_t quote = proposal.strategy->options().quote;
    for (const textio::advice::Column& column : proposal.columns) {
        const std::u16string own_name = textio::advice::column_name(column, quote);
        const std::u16string wanted =
            own_name.empty() ? numbered(u"column", columns.size() + 1) : own_name;
        std::u16string name = wanted;
        std::size_t& copy = copies.try_emplace(in_small_letters(wanted), 1).first->second;
        while (!taken.insert(in_small_letters(name)).second) {
            name = numbered(wanted, ++copy);
        }
        columns.push_back({name, column.type == FieldClass::number});
    }
    return columns;
}

/// A number as SQLite reads it.
std::u16string_view plain_number(std::u16string_view value, const Proposal& proposal,
                                 std::u16string& buffer) {
    const auto& marks = proposal.type_options;
    if (marks.decimal_separator == u'.' && marks.thousands_separator == 0) {
        return value;
    }
    buffer.clear();
    for (const char16_t unit : value) {
        if (unit == marks.decimal_separator) {
            buffer += u'.';
        } else if (unit != marks.thousands_separator) {
            buffer += unit;
        }
    }
    return buffer;
}

/// Reads the text from its start on, to find out what it holds.
Proposal proposal_for(FileText& text) {
    const textio::Field start =
        textio::get_fixed_stream(text.stream(), textio::parser::options().line_endings);
    auto advice = textio::advice::advise(start, sampled_rows);
    if (text.replaced() > 0) {
        throw std::runtime_error("is no UTF-8; 'detect_layout convert' makes it so");
    }
    if (!advice.is_table) {
        throw std::runtime_error("holds no table");
    }
    return advice.proposals.front();
}

} // namespace

Loaded load(const std::string& path, const std::string& name, Database& database) {
    FileText text(path);
    const Proposal proposal = proposal_for(text);
    const std::vector<Column> columns = columns_of(proposal);
    Loaded loaded;
    loaded.columns = columns.size();

    textio::reading::Settings settings;
    settings.tell = [&loaded](const textio::reading::Irregular& irregular) {
        loaded.first_irregular =
            loaded.irregular == 0 ? irregular.line + 1 : loaded.first_irregular;
        ++loaded.irregular;
    };
    // From here on the names that the proposal views are gone.
    textio::reading::Reader reader(proposal, text.stream(), settings);
    Transaction transaction(database);
    database.create_table(name, columns);
    Insertion insertion(database, name, columns.size());
    std::u16string unquoted;
    std::u16string number;
    while (reader.next()) {
        const auto fields = reader.fields();
        for (std::size_t i = 0; i < std::min(fields.size(), columns.size()); ++i) {
            const auto value = textio::reading::cell_value(fields[i], reader.options(), unquoted);
            insertion.set(i, columns[i].is_number ? plain_number(value, proposal, number) : value);
        }
        insertion.insert_row();
        ++loaded.rows;
    }
    if (reader.end() != textio::reading::End::of_text) {
        throw std::runtime_error("has a record without an end");
    }
    transaction.keep();
    return loaded;
}

} // namespace sqlite_loader
