/// \file
/// The answer to a text, as Python holds it.
#pragma once

#include <textio/c.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace binding {

/// Frees what the C interface gave.
struct Free {
    void operator()(textio_hints* hints) const noexcept { textio_hints_free(hints); }
    void operator()(textio_layout* layout) const noexcept { textio_layout_free(layout); }
    void operator()(textio_reader* reader) const noexcept { textio_reader_free(reader); }
};

/// A hint by its name, with all its values; a list may have any number of them.
using Hint = std::pair<std::string, std::vector<std::string>>;

/// What was found in a text.
class Answer {
public:
    /// Detects the layout of UTF-8. Throws `std::invalid_argument` for hints that are not possible.
    Answer(std::string_view bytes, const std::vector<Hint>& hints);

    /// All of it, as JSON.
    [[nodiscard]] std::string json() const;

    [[nodiscard]] const textio_layout* handle() const noexcept { return layout_.get(); }

private:
    std::unique_ptr<textio_layout, Free> layout_;
};

/// Throws what a status stands for, with the text of the last error.
void check(textio_status status);

} // namespace binding
