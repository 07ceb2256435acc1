/// \file
/// Memory that is counted, and that runs out when a test wants it to: of a program that links
/// `memory.cpp`, this is so of all allocations.
#pragma once

#include "parser/reading.hpp"
#include "textio/textio.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace test {

constexpr std::size_t never = SIZE_MAX;
inline std::size_t allocations_until_failure = never;
inline std::size_t largest_block = never; ///< what is larger cannot be had
inline std::size_t blocks_in_use = 0;
inline std::size_t blocks_made = 0;
inline std::size_t bytes_made = 0;

enum class Outcome { done, done_without, out_of_memory };

/// What becomes of `action` if its allocation `number`, counted from 0, fails: it may do without.
template <class Action>
Outcome with_failing_allocation(std::size_t number, Action action) {
    Outcome outcome = Outcome::done;
    allocations_until_failure = number;
    try {
        action();
        outcome = allocations_until_failure == never ? Outcome::done_without : Outcome::done;
    } catch (const std::bad_alloc&) {
        outcome = Outcome::out_of_memory;
    }
    allocations_until_failure = never;
    return outcome;
}

/// Reads `text` into `array`.
template <class Reader>
void read_into(textio::FieldArray& array, const textio::parser::options& options, std::u16string_view text) {
    textio::output::DetectionOutputBuilder builder;
    builder.whitespace = std::make_unique<std::u16string>(options.whitespace);
    builder.field_array = std::make_unique<textio::FieldArray>();
    textio::Field view(text);
    try {
        textio::parser::read_records(options, Reader(options), SIZE_MAX, SIZE_MAX, view, builder);
    } catch (const std::bad_alloc&) {
        array = std::move(*builder.field_array);
        throw;
    }
    array = std::move(*builder.field_array);
}

/// A sample of a text with a title, empty lines, and a column that is empty at the end.
inline std::unique_ptr<textio::FieldArray> sample_of(const std::u16string& text) {
    auto sample = std::make_unique<textio::FieldArray>();
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == u',' || text[at] == u'\n') {
            sample->fields.emplace_back(text.data() + begin, at - begin);
            begin = at + 1;
        }
        if (text[at] == u'\n') {
            sample->line_ends.push_back(sample->fields.size());
        }
    }
    sample->add_empty_line();
    return sample;
}

/// Delivers five letters at a time.
class Letters : public zentor::io::text::stream::TextSource {
    std::size_t read(char16_t* begin, char16_t* /*end*/) override {
        std::fill_n(begin, 5, u'x');
        return 5;
    }
};

} // namespace test
