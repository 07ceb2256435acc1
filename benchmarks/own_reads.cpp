#include "own_reads.hpp"

#include "measuring.hpp"
#include "parser/read_sample.hpp"

#include <algorithm>

namespace bench {

using textio::DelimitedStrategy;
using textio::Field;
using textio::FixedWidthStrategy;
using textio::GenericStrategy;
using textio::LineReaderStrategy;
using textio::SpaceAlignedStrategy;
using textio::enums::StrategyMode;

namespace {

textio::output::DetectionOutputBuilder builder_for(const Field& text) {
    textio::output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = SIZE_MAX;
    return builder;
}

bool holds(const std::vector<std::shared_ptr<GenericStrategy>>& candidates, StrategyMode mode,
           const std::u16string& delimiter) {
    return std::ranges::any_of(candidates, [&](const auto& candidate) {
        return candidate->mode() == mode && (mode != StrategyMode::delimited ||
                                             candidate->options().delimiters.front() == delimiter);
    });
}

class Walk {
public:
    Walk(const Field& text, const DetectionOptions& options) : text_(text), options_(options) {}

    OwnReads run() {
        const auto lines = std::make_shared<LineReaderStrategy>(options_.read, options_.type);
        auto builder = builder_for(text_);
        textio::parser::read_sample(builder, lines, true);
        add(
            [&options = options_] {
                return std::make_shared<LineReaderStrategy>(options.read, options.type);
            },
            true);
        const textio::StrategyValuation& valuation = lines->valuation();
        if (valuation.temporal_variables == 0 && valuation.datetime_variables == 0) {
            add_candidates(*lines->field_array());
        }
        textio::detection::StrategySelector selector(options_.read, options_.type);
        const auto picked = selector.pick_strategy(text_, SIZE_MAX);
        const bool is_fallback = picked->num_variables() == SIZE_MAX;
        if (is_fallback) {
            add_delimited(u',', true);
        }
        count_fields();
        return std::move(own_);
    }

private:
    void add(std::function<std::shared_ptr<GenericStrategy>()> make_strategy, bool kept) {
        own_.reads.push_back({std::move(make_strategy), kept});
    }

    void add_delimited(char16_t delimiter, bool kept) {
        add(
            [&options = options_, delimiter] {
                return std::make_shared<DelimitedStrategy>(options.read, options.type, delimiter);
            },
            kept);
    }

    void add_candidates(const textio::FieldArray& lines) {
        auto builder = builder_for(text_);
        const auto candidates = textio::detection::get_candidate_strategies(
            lines, text_, options_.read, options_.type, builder);
        own_.delimiters = textio::detection::get_candidate_delims(lines);
        const std::u16string ruled_out =
            options_.read.excluded_delimiter.substr(0, 1) + options_.read.quote;
        std::erase_if(own_.delimiters,
                      [&](char16_t unit) { return ruled_out.find(unit) != std::u16string::npos; });
        if (options_.read.layout_hint == textio::parser::layout::fixed_width) {
            add_blank_reads(candidates);
            return;
        }
        for (const char16_t delimiter : own_.delimiters) {
            if (delimiter == u' ') {
                add_blank_reads(candidates);
            }
            add_delimited(delimiter, holds(candidates, StrategyMode::delimited, {delimiter}));
        }
    }

    void add_blank_reads(const std::vector<std::shared_ptr<GenericStrategy>>& candidates) {
        add(
            [&options = options_] {
                return std::make_shared<SpaceAlignedStrategy>(options.read, options.type);
            },
            holds(candidates, StrategyMode::space_aligned, {}));
        for (const auto& candidate : candidates) {
            if (candidate->mode() == StrategyMode::fixed_width) {
                add(
                    [&options = options_, widths = candidate->options().field_widths] {
                        return std::make_shared<FixedWidthStrategy>(options.read, options.type,
                                                                    std::vector(widths));
                    },
                    true);
            }
        }
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
    return Walk(text, options).run();
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
