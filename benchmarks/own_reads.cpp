#include "own_reads.hpp"

#include "measuring.hpp"
#include "parser/read_sample.hpp"

#include <utility>

namespace bench {

using textio::DelimitedStrategy;
using textio::Field;
using textio::FixedWidthStrategy;
using textio::GenericStrategy;
using textio::LineReaderStrategy;
using textio::SpaceAlignedStrategy;
using textio::detection::Ground;
using textio::detection::Trial;
using textio::enums::StrategyMode;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

textio::output::DetectionOutputBuilder builder_for(const Field& text) {
    textio::output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = SIZE_MAX;
    return builder;
}

std::shared_ptr<GenericStrategy> make_strategy(StrategyMode mode,
                                               const textio::parser::options& read,
                                               const TypeAnalyzerOptions& type) {
    switch (mode) {
    case StrategyMode::delimited:
        return std::make_shared<DelimitedStrategy>(read, type);
    case StrategyMode::space_aligned:
        return std::make_shared<SpaceAlignedStrategy>(read, type);
    case StrategyMode::fixed_width:
        return std::make_shared<FixedWidthStrategy>(read, type, std::vector(read.field_widths));
    case StrategyMode::line_reader:
        return std::make_shared<LineReaderStrategy>(read, type);
    }
    return nullptr;
}

/// Writes down what a run reads.
class ReadList : public textio::detection::DecisionObserver {
public:
    ReadList(const Field& text, const DetectionOptions& options) : text_(text), options_(options) {}

    void tried(GenericStrategy& strategy, Trial trial) override {
        const bool shows_candidates = trial == Trial::shows_candidates;
        add(strategy, shows_candidates || trial == Trial::compared);
        if (shows_candidates && !strategy.valuation().has_dates()) {
            add_delimiters(*strategy.field_array());
        }
    }

    void decided(GenericStrategy& answer, Ground ground) override {
        if (ground == Ground::lines_are_dates || ground == Ground::not_separated) {
            add(answer, true);
        }
        count_fields();
    }

    OwnReads reads() && { return std::move(own_); }

private:
    void add(const GenericStrategy& strategy, bool kept) {
        own_.reads.push_back({[mode = strategy.mode(), read = strategy.options(),
                               &type = options_.type] { return make_strategy(mode, read, type); },
                              kept});
    }

    void add_delimiters(const textio::FieldArray& lines) {
        own_.delimiters = textio::detection::get_candidate_delims(lines);
        const std::u16string ruled_out =
            options_.read.excluded_delimiter.substr(0, 1) + options_.read.quote;
        std::erase_if(own_.delimiters,
                      [&](char16_t unit) { return ruled_out.find(unit) != std::u16string::npos; });
    }

    void count_fields() {
        for (const OwnRead& read : own_.reads) {
            const auto strategy = read.make_strategy();
            auto builder = builder_for(text_);
            textio::parser::read_sample(builder, strategy, false);
            const textio::FieldArray& sample = *strategy->field_array();
            own_.fields += sample.fields.size();
            for (std::size_t line = 0; line < sample.line_count(); ++line) {
                own_.fields += sample.line(line).empty() ? 1U : 0U;
            }
        }
    }

    const Field& text_;
    const DetectionOptions& options_;
    OwnReads own_;
};

} // namespace

OwnReads own_reads(const Field& text, const DetectionOptions& options) {
    textio::detection::StrategySelector selector(options.read, options.type);
    ReadList list(text, options);
    selector.pick_strategy(text, SIZE_MAX, list);
    return std::move(list).reads();
}

double seconds_of_reads(const Field& text, const OwnReads& own) {
    double seconds = 0;
    std::vector<std::shared_ptr<GenericStrategy>> held;
    for (const OwnRead& read : own.reads) {
        auto strategy = read.make_strategy();
        auto builder = builder_for(text);
        seconds += seconds_of([&] { textio::parser::read_sample(builder, strategy, false); });
        if (read.kept) {
            held.push_back(std::move(strategy));
        }
    }
    return seconds;
}

} // namespace bench
