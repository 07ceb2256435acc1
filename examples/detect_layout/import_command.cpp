#include "import_command.hpp"

#include "advised.hpp"
#include "bytes.hpp"
#include "known_options.hpp"
#include "output.hpp"
#include "subcommands.hpp"
#include "user_error.hpp"

#include "import_statements/from_proposal.hpp"
#include "import_statements/statement.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace detect_layout {

namespace {

std::vector<std::string> tool_names() {
    std::vector<std::string> names;
    for (const auto& tool : import_statements::tools()) {
        names.emplace_back(tool.name);
    }
    return names;
}

std::string list_tools() {
    std::string text = "Tools:\n";
    for (const auto& tool : import_statements::tools()) {
        text += fmt::format("  {:<11} {}\n", tool.name, tool.what);
    }
    return text +
           "\nWhere the tool cannot be told of something in the file, the statement says of what, "
           "and reads what detect_layout convert makes of it.";
}

/// The same file for `convert`, with all that the user knows of it.
std::vector<std::string> convert_command(int count, const char* const* arguments) {
    std::vector<std::string> words{"detect_layout", "convert"};
    for (int i = 1; i < count; ++i) {
        const std::string_view word = arguments[i];
        if (word == "--for") {
            ++i;
        } else if (!word.starts_with("--for=")) {
            words.emplace_back(word);
        }
    }
    return words;
}

bool has_byte_order_mark(const std::string& file) {
    std::array<char, 4> head{};
    const auto bytes = open_bytes(file);
    const std::string_view start(head.data(), bytes->read(head.data(), head.size()));
    return start.starts_with("\xEF\xBB\xBF") || start.starts_with("\xFF\xFE") ||
           start.starts_with("\xFE\xFF") || start == std::string_view("\0\0\xFE\xFF", 4);
}

import_statements::Table table_in(const std::string& file, const Settings& settings) {
    const Advised advised = advise(file, open_bytes(file), settings);
    auto table = import_statements::table_from(advised.best(), advised.input->text());
    if (table.columns.empty()) {
        throw UserError(fmt::format("{}: has no rows to import", file));
    }
    table.file = file;
    table.encoding = advised.input->character_set().name;
    table.has_mark = has_byte_order_mark(file);
    table.is_gzip = advised.input->is_unpacked();
    table.troubles.replaced_bytes = advised.input->undecodable() > 0;
    return table;
}

} // namespace

int run_import(int count, const char* const* arguments) {
    Settings settings;
    OptionTexts texts;
    std::string tool;
    CLI::App app("Prints the statement that reads a file in a tool.", "detect_layout import");
    app.footer(list_tools());
    app.add_option("input", settings.inputs, "The file")->type_name("FILE");
    app.add_option("--for", tool, "The tool")
        ->type_name("NAME")
        ->check(CLI::IsMember(tool_names()));
    declare_known_options(app, settings, texts);
    const std::string help = parse(app, count, arguments);
    if (!help.empty()) {
        write_out(help);
        return all_went_well;
    }
    if (settings.inputs.size() != 1 || settings.inputs.front() == "-") {
        throw UserError("which file? (one that the tool can open by its name)");
    }
    if (tool.empty()) {
        throw UserError("for which tool? (--for; --help lists them)");
    }
    apply(texts, settings);
    auto table = table_in(settings.inputs.front(), settings);
    table.convert = convert_command(count, arguments);
    write_out(import_statements::statement_for(tool, table).text);
    return all_went_well;
}

} // namespace detect_layout
