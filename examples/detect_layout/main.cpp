#include "advice_json.hpp"
#include "advice_report.hpp"
#include "advised.hpp"
#include "bytes.hpp"
#include "command_line.hpp"
#include "detection.hpp"
#include "explanation.hpp"
#include "input_files.hpp"
#include "json_report.hpp"
#include "output.hpp"
#include "picture.hpp"
#include "report.hpp"
#include "subcommands.hpp"
#include "table.hpp"
#include "terminal.hpp"
#include "user_error.hpp"

#include <fmt/format.h>

#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace detect_layout;

/// All that is to be printed about one input. `Answer` is either kind of answer.
template <typename Answer>
std::string report(const Answer& answer, const Settings& settings, bool is_one_of_many) {
    std::optional<Explanation> explanation;
    if (settings.explain && settings.rules_know_all()) {
        explanation = explain(answer.input->text(), settings);
    }
    if (settings.json) {
        return to_json(answer, explanation);
    }
    if (is_one_of_many && !settings.explain) {
        return summarise(answer);
    }
    std::string text = describe(answer);
    const auto add = [&text](const std::string& part) {
        if (!part.empty()) {
            text.append("\n").append(part);
        }
    };
    add(draw_picture(table_of(answer), standard_output_style(settings.shown_rows)));
    add(settings.explain ? list_proposals(answer) : "");
    add(explanation ? rules_heading(answer) + draw_table(*explanation) : "");
    return text.append(is_one_of_many ? "\n" : "");
}

std::string report(const std::string& file, const Settings& settings, bool is_one_of_many) {
    return settings.rules
               ? report(detect(file, open_bytes(file), settings), settings, is_one_of_many)
               : report(advise(file, open_bytes(file), settings), settings, is_one_of_many);
}

int report_all(const Settings& settings) {
    const auto files = input_files(settings);
    const bool is_one_of_many = files.size() > 1 || settings.recursive;
    const ProgressBar progress(settings.recursive, files.size());
    int status = all_went_well;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto& [path, trouble] = files[i];
        progress.show(i, path);
        try {
            if (!trouble.empty()) {
                throw UserError(trouble);
            }
            const std::string text = report(path, settings, is_one_of_many);
            progress.clear();
            write_out(text);
        } catch (const UserError& error) {
            progress.clear();
            complain(fmt::format("{}: {}", path == "-" ? "standard input" : path, error.what()));
            status = something_went_wrong;
        }
    }
    return status;
}

} // namespace

int main(int count, char** arguments) {
    hold_standard_streams();
    try {
        if (const Subcommand* subcommand = subcommand_of(count, arguments); subcommand != nullptr) {
            return subcommand->run(count - 1, arguments + 1);
        }
        const Settings settings = read_command_line(count, arguments);
        if (!settings.help.empty()) {
            write_out(settings.help);
            return all_went_well;
        }
        return report_all(settings);
    } catch (const std::exception& error) {
        complain(error.what());
        return something_went_wrong;
    }
}
