/// \file
/// Scores a folder of labelled files by both doors of the library.

#include "answer.hpp"
#include "labelled_text.hpp"
#include "leave_out.hpp"
#include "tally.hpp"
#include "timing.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <exception>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace accuracy;

const std::vector<std::string> sets = {"first", "hard"};
const std::vector<std::string> kinds = {"delimited", "space_aligned", "fixed_width", "line"};

/// What both doors got right in some of the files.
struct BothDoors {
    Tally picked;
    Tally advised;
};

/// By set, then by kind; "all" are all kinds.
using Tallies = std::map<std::string, std::map<std::string, BothDoors>>;

void print_miss(const std::string& door, const Label& label, const Answer& answer) {
    fmt::print("{} misses {}: {} {} of {} columns, not {} {} of {}\n", door,
               label.at("id").get<std::string>(), answer.kind, answer.delimiter.dump(),
               answer.columns, label.at("kind").get<std::string>(), label.at("delimiter").dump(),
               label.at("columns").dump());
}

Tallies score(const std::vector<LabelledText>& texts, bool shows_misses) {
    Tallies tallies;
    for (const LabelledText& labelled : texts) {
        const Label& label = labelled.label;
        const textio::Field text(labelled.text);
        const Answer picked = answer_of_pick(text);
        const Answer advised = answer_of_advise(text);
        auto& of_set = tallies[label.at("set")];
        for (BothDoors* doors : {&of_set["all"], &of_set[label.at("kind")]}) {
            doors->picked.add(label, picked);
            doors->advised.add(label, advised);
        }
        if (shows_misses && !has_right_layout(label, picked)) {
            print_miss("pick_strategy", label, picked);
        }
        if (shows_misses && !has_right_layout(label, advised)) {
            print_miss("advise", label, advised);
        }
    }
    return tallies;
}

void print_layouts(Tallies& tallies) {
    Table table({"set", "kind", "files", "`pick_strategy`: layout", "and columns",
                 "`advise`: layout", "and columns"});
    std::vector<std::string> rows = kinds;
    rows.emplace_back("all");
    for (const std::string& set : sets) {
        for (const std::string& kind : rows) {
            const auto& [picked, advised] = tallies[set][kind];
            if (picked.layout.all != 0) {
                table.add({set, kind, std::to_string(picked.layout.all), percent(picked.layout),
                           percent(picked.layout_and_columns), percent(advised.layout),
                           percent(advised.layout_and_columns)});
            }
        }
    }
    table.print();
}

void print_facts(Tallies& tallies) {
    Table table({"", "first", "hard"});
    for (const std::string fact : fact_names) {
        std::vector<std::string> row{fact};
        for (const std::string& set : sets) {
            row.push_back(shown(tallies[set]["all"].advised.facts[fact]));
        }
        table.add(std::move(row));
    }
    table.print();
}

void print_confidences(Tallies& tallies) {
    Table table({"confidence", "first", "hard"});
    for (const std::string& group : confidence_groups()) {
        table.add({group, shown(tallies["first"]["all"].advised.confidences[group]),
                   shown(tallies["hard"]["all"].advised.confidences[group])});
    }
    table.print();
}

std::vector<LabelledText> read_all(const std::string& folder, const std::string& labels) {
    std::vector<LabelledText> texts;
    std::size_t missing = 0;
    for (Label& label : read_labels(labels)) {
        if (auto text = read_text(folder, label)) {
            texts.push_back({std::move(label), std::move(*text)});
        } else {
            ++missing;
        }
    }
    fmt::print("{} files; {} more have labels, but are not in the folder\n\n", texts.size(),
               missing);
    return texts;
}

struct Options {
    std::string folder;
    std::string labels = LABELS_FILE;
    bool shows_misses = false;
    bool measures_times = false;
    bool leaves_out = false;
};

void add_options(CLI::App& app, Options& options) {
    app.add_option("folder", options.folder, "the files, named by the ids of their labels")
        ->required();
    app.add_option("--labels", options.labels, "other labels than those beside the source");
    app.add_flag("-v,--verbose", options.shows_misses, "tell each wrong layout");
    app.add_flag("--times", options.measures_times, "also what the answers cost");
    app.add_flag("--leave-one-out", options.leaves_out, "also what each term of the score brings");
}

/// Prints the tables. Gives the status of the program.
int run(const Options& options) {
    const std::vector<LabelledText> texts = read_all(options.folder, options.labels);
    Tallies tallies = score(texts, options.shows_misses);
    print_layouts(tallies);
    print_facts(tallies);
    print_confidences(tallies);
    if (options.measures_times) {
        print_times(texts);
    }
    if (options.leaves_out) {
        print_ranking_without_terms(texts);
    }
    return texts.empty() ? 1 : 0;
}

} // namespace

int main(int argument_count, char** arguments) {
    try {
        CLI::App app("Scores a folder of labelled files by both doors of the library.");
        Options options;
        add_options(app, options);
        CLI11_PARSE(app, argument_count, arguments);
        return run(options);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
