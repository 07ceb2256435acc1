#include "conversion.hpp"

#include "advice_words.hpp"
#include "advised.hpp"
#include "column_names.hpp"
#include "column_values.hpp"
#include "irregular_reports.hpp"
#include "layout_names.hpp"
#include "output.hpp"
#include "output_file.hpp"
#include "record_writer.hpp"
#include "terminal.hpp"
#include "unicode.hpp"
#include "user_error.hpp"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace detect_layout {

namespace {

using textio::reading::End;
using textio::reading::Fault;
using zentor::io::text::typedetection::FieldClass;

constexpr std::size_t piece_bytes = 1'048'576; ///< that are written in one go
constexpr std::size_t megabyte = 1'000'000;
constexpr std::size_t long_file = 16 * megabyte; ///< from here on, a bar shows the progress
constexpr auto bar_interval = std::chrono::milliseconds(100);

std::vector<WrittenColumn> written_columns(const textio::advice::Proposal& proposal) {
    std::vector<WrittenColumn> columns;
    for (std::string& name : column_names(proposal)) {
        const bool is_number = proposal.columns[columns.size()].type == FieldClass::number;
        columns.push_back({std::move(name), is_number});
    }
    return columns;
}

bool holds_replacement(std::span<const textio::Field> cells) {
    return std::any_of(cells.begin(), cells.end(), [](const textio::Field& cell) {
        return cell.view().find(replacement_character) != std::u16string_view::npos;
    });
}

/// One conversion on its way.
class Conversion {
public:
    explicit Conversion(const ConversionSettings& settings)
        : settings_(settings), name_(settings.file == "-" ? "standard input" : settings.file),
          output_(settings.output, settings.replaces),
          advised_(advise(settings.file, open_bytes(settings.file), settings.known)),
          progress_(shows_progress(), advised_.input->bytes().total() / megabyte),
          reports_(name_, settings.reports, settings.policy, progress_) {}

    /// Gives whether all fits.
    bool run() {
        TextInput& input = *advised_.input;
        if (input.text().size == 0 && input.is_cut()) {
            throw UserError("no line ends in the first 4194304 UTF-16 code units");
        }
        if (input.text().size > 0) {
            tell_doubts();
            convert_records();
        }
        reports_.finish(records_);
        const std::size_t undecodable = input.undecodable();
        if (undecodable > 0) {
            note(fmt::format("{} in {}", counted(undecodable, "undecodable byte sequence"),
                             input.character_set().name));
        }
        progress_.clear();
        output_.write(written_);
        output_.finish();
        return undecodable == 0 && !reports_.is_something_irregular();
    }

private:
    [[nodiscard]] bool shows_progress() const {
        const bool is_in_the_way = settings_.output == "-" && isatty(STDOUT_FILENO) != 0;
        return !is_in_the_way && advised_.input->bytes().total() >= long_file;
    }

    void note(const std::string& text) const {
        progress_.clear();
        complain(fmt::format("{}: {}", name_, text));
    }

    void tell_doubts() const {
        const auto& advice = advised_.advice;
        if (!advice.is_table) {
            note("no table seen; each line becomes a cell");
        } else if (is_doubtful(advice)) {
            note(fmt::format("read as {}; {}", layout_phrase(*advised_.best().strategy),
                             confidence_phrase(advice)));
        }
    }

    void convert_records() {
        ColumnValues values(advised_, settings_.iso_dates);
        const auto columns = written_columns(advised_.best());
        for (const std::size_t column : values.unsure_dates()) {
            note(fmt::format("the dates of '{}' are left as they are: day and month are not sure",
                             columns[column].name));
        }
        const auto writer = make_writer(settings_.format, columns, values);
        writer->write_names(written_);
        textio::reading::Reader reader(advised_.best(), advised_.input->stream(),
                                       reader_settings());
        advised_.advice = {}; // a view of a text that is now read on
        advised_.by_rules.reset();
        while (reader.next()) {
            ++records_;
            regular_ += reader.fault() == Fault::none ? 1 : 0;
            const std::size_t odd_dates = values.odd_dates();
            writer->write(reader.fields(), written_);
            if (values.odd_dates() != odd_dates) {
                reports_.add_note(reader.line(), "a date is written in another way, and is left "
                                                 "as it is");
            }
            if (advised_.input->undecodable() > 0 && holds_replacement(reader.fields())) {
                reports_.add_note(reader.line(), "has what could not be decoded, now U+FFFD");
            }
            if (written_.size() >= piece_bytes) {
                write_piece();
            }
        }
        check_end(reader.end());
    }

    textio::reading::Settings reader_settings() {
        textio::reading::Settings settings;
        settings.policy = settings_.policy;
        settings.longest_record = settings_.longest_record;
        settings.tell = [this](const textio::reading::Irregular& irregular) {
            records_ += settings_.policy == textio::reading::Policy::skip ? 1 : 0;
            if (irregular.fault == Fault::too_long) {
                too_long_line_ = irregular.line;
            } else {
                reports_.add(irregular, regular_);
            }
        };
        return settings;
    }

    void write_piece() {
        output_.write(written_);
        const auto now = std::chrono::steady_clock::now();
        if (now >= next_bar_) {
            progress_.show(advised_.input->bytes().place() / megabyte, "MB of " + name_);
            next_bar_ = now + bar_interval;
        }
    }

    /// What ends before the text does is no conversion of it.
    void check_end(End end) {
        if (end == End::of_text) {
            return;
        }
        reports_.finish(records_);
        progress_.clear();
        if (end == End::too_long) {
            throw UserError(fmt::format("line {}: a record is longer than {} UTF-16 code units "
                                        "(--longest-record); perhaps a quote is never closed",
                                        too_long_line_ + 1, settings_.longest_record));
        }
        throw UserError(
            end == End::stopped
                ? std::string("stopped at a record that does not fit")
                : fmt::format("record {} starts with U+FFFF, which ends a text", records_ + 1));
    }

    const ConversionSettings& settings_;
    std::string name_;
    OutputFile output_;
    Advised advised_;
    ProgressBar progress_;
    IrregularReports reports_;
    ByteBuffer written_;
    std::size_t records_ = 0;
    std::size_t regular_ = 0;
    std::size_t too_long_line_ = 0;
    std::chrono::steady_clock::time_point next_bar_{};
};

} // namespace

bool convert(const ConversionSettings& settings) {
    try {
        return Conversion(settings).run();
    } catch (const UserError& error) {
        throw UserError(fmt::format(
            "{}: {}", settings.file == "-" ? "standard input" : settings.file, error.what()));
    }
}

} // namespace detect_layout
