// Import statements for JavaScript, from a layout that it holds. They need the very reading that
// was found, which the C interface keeps inside a layout.

#include "c/layout.hpp"

#include "import_statements/from_proposal.hpp"
#include "import_statements/statement.hpp"

#include <textio/c.h>
#include <textio/field.hpp>
#include <textio/utf8.hpp>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace {

using import_statements::Table;
using textio::c::ToldProposal;

void add_option(std::vector<std::string>& words, const char* name, const std::string& value) {
    words.emplace_back(name).append("=").append(value);
}

/// The command that reads the file as the layout says, whatever hints it took to find that.
std::vector<std::string> convert_command(const ToldProposal& told, const Table& table) {
    std::vector<std::string> words{"detect_layout", "convert"};
    add_option(words, "--encoding", table.encoding);
    if (told.delimiter) {
        add_option(words, "--delimiter", *told.delimiter);
    } else if (!told.widths.empty()) {
        std::string widths;
        for (const std::size_t width : told.widths) {
            widths.append(widths.empty() ? "" : ",").append(std::to_string(width));
        }
        add_option(words, "--widths", widths);
    } else {
        add_option(words, "--layout", told.kind == "line" ? "lines" : "aligned");
    }
    add_option(words, "--quote", told.quote.value_or(""));
    if (told.comment) {
        add_option(words, "--comment", *told.comment);
        if (told.comment_end) {
            add_option(words, "--comment-end", *told.comment_end);
        }
    } else {
        words.emplace_back("--no-comments");
    }
    if (told.decimal) {
        add_option(words, "--decimal", *told.decimal);
        add_option(words, "--thousands", told.thousands.value_or(""));
    }
    const auto& reading = told.reading;
    add_option(words, "--first-data-line", std::to_string(reading.first_data_line + 1));
    add_option(words, "--names-line", std::to_string(reading.names_line + 1)); // none becomes 0
    words.emplace_back("--");
    words.push_back(table.file);
    return words;
}

/// The table of a proposal whose columns have their names once more.
Table table_of(const ToldProposal& told, std::u16string_view text) {
    std::vector<std::u16string> names;
    names.reserve(told.columns.size());
    textio::advice::Proposal reading = told.reading;
    for (std::size_t i = 0; i < told.columns.size(); ++i) {
        reading.columns[i].name =
            names.emplace_back(textio::utf8::decode(told.columns[i].name).text);
    }
    return import_statements::table_from(reading, textio::Field(text));
}

/// A copy that `free` frees.
char* copy_of(const std::string& text) {
    auto* const copy = static_cast<char*>(std::malloc(text.size() + 1));
    if (copy == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

std::string lines_of(const std::vector<std::string>& texts) {
    std::string lines;
    for (const std::string& text : texts) {
        lines.append(text).append("\n");
    }
    return lines;
}

} // namespace

extern "C" {

/// The names of the tools, each on a line of its own; to be freed.
textio_status statement_tools(char** names) {
    std::vector<std::string> list;
    for (const import_statements::Tool& tool : import_statements::tools()) {
        list.emplace_back(tool.name);
    }
    *names = copy_of(lines_of(list));
    return TEXTIO_OK;
}

/// What a tool cannot be told, a line each; an empty line; the statement. To be freed. The only bad
/// value is a text without rows, as all others are known beforehand.
textio_status statement_for(const textio_layout* layout, std::size_t proposal, const char* tool,
                            const char* file, const char* encoding, int has_mark,
                            const char16_t* text, std::size_t units, char** result) {
    try {
        const ToldProposal& told = layout->proposals[proposal];
        const std::u16string_view view(text, units);
        Table table = table_of(told, view);
        if (table.columns.empty()) {
            return TEXTIO_BAD_VALUE;
        }
        table.file = file;
        table.encoding = encoding;
        table.has_mark = has_mark != 0;
        table.troubles.replaced_bytes = view.find(u'\uFFFD') != std::u16string_view::npos;
        table.convert = convert_command(told, table);
        const auto statement = import_statements::statement_for(tool, table);
        *result = copy_of(lines_of(statement.obstacles) + "\n" + statement.text);
        return TEXTIO_OK;
    } catch (const std::bad_alloc&) {
        return TEXTIO_NO_MEMORY;
    } catch (const std::exception&) {
        return TEXTIO_BAD_VALUE;
    }
}
}
