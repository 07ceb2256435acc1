#include "convert_command.hpp"

#include "conversion.hpp"
#include "known_options.hpp"
#include "output.hpp"
#include "subcommands.hpp"
#include "user_error.hpp"

#include <CLI/CLI.hpp>

#include <map>
#include <string>

namespace detect_layout {

namespace {

using textio::reading::Policy;

constexpr auto footer = R"(Examples:
  detect_layout convert umsatz.csv -o sales.csv
  detect_layout convert --to jsonl listing.txt | jq .name
  curl -s https://host/data.gz | detect_layout convert - --delimiter '|'

The first line has the names of the columns; one without is column_3. Values are without the blanks and quotes around them, numbers have a decimal point. What stands above the table is not written.

Exit status: 0 if all records fit, 1 if some do not or bytes could not be decoded, which standard error tells with their lines, 2 after an error. No output file is left then.)";

const std::map<std::string, TableFormat> formats{{"csv", TableFormat::comma_separated},
                                                 {"tsv", TableFormat::tab_separated},
                                                 {"jsonl", TableFormat::json_lines}};

const std::map<std::string, Policy> policies{
    {"keep", Policy::keep}, {"pad", Policy::pad}, {"skip", Policy::skip}, {"stop", Policy::stop}};

void declare_output(CLI::App& app, ConversionSettings& settings, std::string& format) {
    const char* const group = "Output";
    app.add_option("-o,--output", settings.output,
                   "The file to write; it is there once all of it is (default standard output)")
        ->type_name("FILE")
        ->group(group);
    app.add_flag("--force", settings.replaces, "Replace the file if it exists")->group(group);
    app.add_option("--to", format,
                   "csv (default, with commas), tsv (with tabs), or jsonl (JSON lines), in UTF-8")
        ->type_name("FORMAT")
        ->check(CLI::IsMember(formats))
        ->group(group);
    app.add_flag("--iso-dates", settings.iso_dates,
                 "Write dates as 2024-06-10 where it is sure what is day and what month")
        ->group(group);
}

void declare_faults(CLI::App& app, ConversionSettings& settings, std::string& policy) {
    const char* const group = "What does not fit";
    app.add_option("--irregular", policy,
                   "A record with too few or too many fields: pad (default, with empty ones; none "
                   "is taken away), keep as it is, skip, or stop, which is an error")
        ->type_name("WHAT")
        ->check(CLI::IsMember(policies))
        ->group(group);
    app.add_option("--reports", settings.reports, "Lines about such records (default 10)")
        ->type_name("N")
        ->check(no_sign())
        ->group(group);
    app.add_option("--longest-record", settings.longest_record,
                   "UTF-16 code units that a record may have (default 16777216)")
        ->type_name("N")
        ->check(no_sign())
        ->group(group);
}

} // namespace

int run_convert(int count, const char* const* arguments) {
    ConversionSettings settings;
    OptionTexts texts;
    std::string format = "csv";
    std::string policy = "pad";
    CLI::App app("Writes the table of a file in a plain format.", "detect_layout convert");
    app.footer(footer);
    app.add_option("input", settings.file, "A file; - for standard input")->type_name("FILE");
    declare_output(app, settings, format);
    declare_faults(app, settings, policy);
    declare_known_options(app, settings.known, texts);
    const std::string help = parse(app, count, arguments);
    if (!help.empty()) {
        write_out(help);
        return all_went_well;
    }
    if (settings.file.empty()) {
        throw UserError("which file? (- for standard input, --help for help)");
    }
    apply(texts, settings.known);
    settings.format = formats.at(format);
    settings.policy = policies.at(policy);
    return convert(settings) ? all_went_well : something_is_irregular;
}

} // namespace detect_layout
