#pragma once

#include "advised.hpp"
#include "detection.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace detect_layout {

/// A sample as it is to be shown. It views the text, the sample and the names of an answer, which
/// must outlive it.
struct Table {
    std::u16string_view text;
    const textio::FieldArray* sample = nullptr;
    std::size_t header_lines = 0;           ///< lines of the sample above the data
    std::vector<std::size_t> rows;          ///< lines of the sample with data
    std::size_t names_line = SIZE_MAX;      ///< the line of the sample with the names, if any
    std::vector<std::u16string_view> names; ///< of the columns; empty where none are known
};

[[nodiscard]] Table table_of(const Detection& detection);
[[nodiscard]] Table table_of(const Advised& advised);

/// Goes through a sample and its text side by side. Lines of the sample can hold line endings, in
/// quotes, and comments leave no fields in it.
class SampleWalk {
public:
    SampleWalk(std::u16string_view text, const textio::FieldArray& sample)
        : text_(text), sample_(sample) {}

    /// Goes on to the next line of the sample; gives its text up to where it ends.
    std::u16string_view next();

    /// The line of the text, from 0, on which the sample's next line begins.
    [[nodiscard]] std::size_t text_line() const;

private:
    [[nodiscard]] std::size_t start_of_next() const;

    std::u16string_view text_;
    const textio::FieldArray& sample_;
    std::size_t line_ = 0;      ///< of the sample, to come
    std::size_t place_ = 0;     ///< behind the line before, in the text
    std::size_t text_line_ = 0; ///< of that place
};

} // namespace detect_layout
