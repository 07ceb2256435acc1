#include "textio/reading.hpp"

#include "reading/batches.hpp"
#include "reading/line_count.hpp"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace textio::reading {

using enums::StrategyMode;
using zentor::io::text::stream::TextStream;

namespace {

/// Where the data starts.
struct Start {
    std::size_t lines_of_text = 0;  ///< to pass, whatever they hold
    std::size_t lines_of_batch = 0; ///< to leave out: a record is one of them, however long
};

Start behind_header(const GenericStrategy& layout) {
    const std::size_t header = layout.header_lines();
    return {0, header == SIZE_MAX ? 0 : header};
}

std::size_t fields_of(const GenericStrategy& layout) {
    switch (layout.mode()) {
    case StrategyMode::fixed_width:
        return layout.options().field_widths.size();
    case StrategyMode::line_reader:
        return 1;
    default:
        return layout.num_variables() == SIZE_MAX ? 0 : layout.num_variables();
    }
}

std::size_t fields_of(const advice::Proposal& proposal) {
    return proposal.columns.empty() ? fields_of(*proposal.strategy) : proposal.columns.size();
}

/// Whether empty cells at the end of a line are not kept when it is read.
bool drops_last_cells(StrategyMode mode, const parser::options& options) {
    return mode == StrategyMode::fixed_width ||
           (mode == StrategyMode::delimited &&
            options.consecutive_delimiters_rule == parser::consecutive_delimiters::separate &&
            options.trailing_delimiters_rule == parser::trailing_delimiters::drop);
}

/// Whether a quoted part opens at the start of `cell` and is not closed.
bool has_open_quote(const Field& cell, const parser::options& options) {
    std::u16string_view text = cell.view();
    text.remove_prefix(std::min(text.find_first_not_of(options.whitespace), text.size()));
    if (text.empty() || text.front() != options.quote) {
        return false;
    }
    std::size_t at = text.find(options.quote, 1);
    while (at != std::u16string_view::npos && text.substr(at + 1).starts_with(options.quote)) {
        at = text.find(options.quote, at + 2);
    }
    return at == std::u16string_view::npos;
}

} // namespace

class Reader::State {
public:
    State(const GenericStrategy& layout, std::size_t fields, Start start, Window window,
          Settings settings)
        : mode_(layout.mode()), options_(layout.options()), settings_(std::move(settings)),
          expected_(settings_.fields == 0 ? fields : settings_.fields), start_(start),
          drops_last_cells_(drops_last_cells(mode_, options_)),
          batches_(mode_, options_, std::move(window), settings_.chunk_units,
                   settings_.longest_record),
          count_(start.lines_of_text) {}

    /// The fields of the next record; none if there is none.
    std::span<const Field> next(Lines& lines, Fault& fault) {
        while (end_ == End::not_yet) {
            if (lines.next == lines.end) {
                start_batch(lines);
                continue;
            }
            const std::span<const Field> fields(lines.fields + lines.begin,
                                                *lines.next - lines.begin);
            make_room_to_pad(fields.size()); // while the record still comes next
            lines.plain_end += lines.next == lines.plain_end ? 1 : 0;
            lines.begin = *lines.next++;
            if (fields.empty()) {
                continue;
            }
            const std::span<const Field> given = judged(fields, lines, fault);
            if (!given.empty()) {
                return given;
            }
        }
        return {};
    }

    /// The line of the text with the record that is the last one before `lines`.
    [[nodiscard]] std::size_t line_of(const Field& first, const Lines& lines) noexcept {
        const std::size_t* const line_ends = batches_.lines().line_ends.data();
        return count_.line_at(static_cast<std::size_t>(lines.next - line_ends) - 1, first.data);
    }

    [[nodiscard]] End end() const noexcept { return end_; }
    [[nodiscard]] const parser::options& options() const noexcept { return options_; }

private:
    void start_batch(Lines& lines) {
        count_.finish(std::exchange(line_count_, 0));
        lines = {};
        batches_.pass_lines(start_.lines_of_text);
        switch (batches_.next()) {
        case Batches::Outcome::end_of_text:
            end_ = End::of_text;
            return;
        case Batches::Outcome::end_mark:
            end_ = End::at_mark;
            return;
        case Batches::Outcome::too_long:
            end_ = End::too_long;
            tell({Fault::too_long, count_.line_at(0, nullptr), expected_, 0});
            return;
        case Batches::Outcome::lines:
            break;
        }
        count_.start(batches_.reader(), batches_.text());
        show(lines);
    }

    /// Makes `lines` the lines of the batch.
    void show(Lines& lines) {
        const FieldArray& batch = batches_.lines();
        line_count_ = batch.line_count();
        const std::size_t left_out = std::min(start_.lines_of_batch, line_count_);
        start_.lines_of_batch -= left_out;
        lines.fields = batch.fields.data();
        lines.begin = left_out == 0 ? 0 : batch.line_ends[left_out - 1];
        lines.next = batch.line_ends.data() + left_out;
        lines.end = batch.line_ends.data() + line_count_;
        lines.plain_end = lines.end;
        if (mode_ == StrategyMode::fixed_width) {
            lines.plain_end = lines.next;
        } else if (batches_.is_last() && lines.next != lines.end) {
            --lines.plain_end;
        }
        lines.regular = expected_ == 0 ? SIZE_MAX : expected_;
    }

    void tell(const Irregular& irregular) const {
        if (settings_.tell) {
            settings_.tell(irregular);
        }
    }

    /// Whether a quoted part that opens in `last` goes on to the end of the text.
    [[nodiscard]] bool is_left_open(const Field& last) const {
        const bool has_quotes =
            mode_ == StrategyMode::delimited || mode_ == StrategyMode::space_aligned;
        return batches_.is_last() && has_quotes && has_open_quote(last, options_);
    }

    [[nodiscard]] Fault fault_of(std::span<const Field> fields, bool is_last_line,
                                 std::size_t& found) const {
        if (is_last_line && is_left_open(fields.back())) {
            return Fault::open_quote;
        }
        if (found < expected_) {
            return drops_last_cells_ ? Fault::none : Fault::too_few_fields;
        }
        if (mode_ == StrategyMode::fixed_width && found == expected_ && goes_on(fields.back())) {
            ++found;
        }
        return found > expected_ ? Fault::too_many_fields : Fault::none;
    }

    /// Whether more than blanks stands behind a field of fixed width.
    [[nodiscard]] bool goes_on(const Field& field) const {
        const Field& text = batches_.text();
        const auto behind = static_cast<std::size_t>(field.data + field.size - text.data);
        const parser::TextReader& reader = batches_.reader();
        return !reader.clearly_ends_at(text, behind) && !reader.is_rest_blank(text, behind);
    }

    /// The fields that are given of a record that needs a closer look; none if it is passed over.
    std::span<const Field> judged(std::span<const Field> fields, Lines& lines, Fault& fault) {
        std::size_t found = fields.size();
        if (expected_ == 0) {
            expected_ = found;
            lines.regular = found;
        }
        fault = fault_of(fields, lines.next == lines.end, found);
        if (fault != Fault::none) {
            tell({fault, line_of(fields.front(), lines), expected_, found});
            if (settings_.policy == Policy::stop) {
                end_ = End::stopped;
            }
            if (settings_.policy == Policy::stop || settings_.policy == Policy::skip) {
                return {};
            }
        }
        const bool pads = settings_.policy == Policy::pad && fields.size() < expected_;
        return pads ? padded(fields) : fields;
    }

    /// So that a record that cannot be padded for want of memory is not lost.
    void make_room_to_pad(std::size_t found) {
        if (settings_.policy != Policy::pad || found == 0 || found >= expected_) {
            return;
        }
        if (expected_ > padded_.max_size()) {
            throw std::bad_alloc();
        }
        padded_.reserve(expected_);
    }

    std::span<const Field> padded(std::span<const Field> fields) {
        const Field& last = fields.back();
        padded_.assign(fields.begin(), fields.end());
        padded_.resize(expected_, Field(last.data + last.size, 0));
        return padded_;
    }

    const StrategyMode mode_;
    const parser::options options_;
    const Settings settings_;
    std::size_t expected_; ///< fields of a regular record; 0 while that is not known
    Start start_;          ///< what is left of it
    const bool drops_last_cells_;
    Batches batches_;
    LineCount count_;
    std::size_t line_count_ = 0; ///< of the batch
    std::vector<Field> padded_;
    End end_ = End::not_yet;
};

Reader::Reader(const GenericStrategy& layout, const Field& text, Settings settings)
    : state_(std::make_unique<State>(layout, fields_of(layout), behind_header(layout), Window(text),
                                     std::move(settings))) {}

Reader::Reader(const GenericStrategy& layout, TextStream& stream, Settings settings)
    : state_(std::make_unique<State>(layout, fields_of(layout), behind_header(layout),
                                     Window(stream), std::move(settings))) {}

Reader::Reader(const advice::Proposal& proposal, const Field& text, Settings settings)
    : state_(std::make_unique<State>(*proposal.strategy, fields_of(proposal),
                                     Start{proposal.first_data_line, 0}, Window(text),
                                     std::move(settings))) {}

Reader::Reader(const advice::Proposal& proposal, TextStream& stream, Settings settings)
    : state_(std::make_unique<State>(*proposal.strategy, fields_of(proposal),
                                     Start{proposal.first_data_line, 0}, Window(stream),
                                     std::move(settings))) {}

Reader::~Reader() = default;

/// What `next` does for a line that is no regular record, or where there are no more lines.
bool Reader::look_closer() {
    fields_ = {};
    fields_ = state_->next(lines_, fault_);
    return !fields_.empty();
}

std::size_t Reader::line() const noexcept {
    return fields_.empty() ? 0 : state_->line_of(fields_.front(), lines_);
}

End Reader::end() const noexcept {
    return state_->end();
}

const parser::options& Reader::options() const noexcept {
    return state_->options();
}

} // namespace textio::reading
