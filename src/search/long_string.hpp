/// \file
/// Strings that may be as long as the text that is searched for them.
#pragma once

#include "textio/field.hpp"
#include "textio/platform/delimiter_set.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace textio::parser {

/// Tells where a string stands in one text. Asked from left to right, it costs as much as the
/// string and the text are long, however alike they are: what an earlier comparison has found out
/// about the text is not looked at again.
class LongString {
public:
    /// A shorter string is compared anew each time, which costs little.
    static constexpr std::size_t least_units = 64;

    explicit LongString(std::u16string units);

    [[nodiscard]] std::size_t size() const noexcept { return units_.size(); }

    /// Whether the string stands at `at`, in front of `end`.
    [[nodiscard]] bool stands_at(const char16_t* at, const char16_t* end) noexcept;

    /// To be called before another text is asked.
    void forget_text() noexcept { begin_ = end_ = nullptr; }

private:
    std::u16string units_;
    std::vector<std::size_t> repeats_; ///< how many units from each on are those of the beginning
    const char16_t* begin_ = nullptr;  ///< from here ...
    const char16_t* end_ = nullptr; ///< ... to here, the text is like the beginning of the string
};

/// A set of strings as one text is asked for it, by one thread at a time.
class SetInText {
public:
    SetInText() = default; ///< of no set, which must not be asked
    explicit SetInText(std::shared_ptr<Delim> set);

    /// As `Delim::match_at`.
    [[nodiscard]] std::size_t match_at(const Field& text, std::size_t position) const noexcept {
        return long_strings_.empty() ? set_->match_at(text, position) : match_any(text, position);
    }

    /// To be called before another text is asked, which may stand where this one stood.
    void forget_text() const noexcept {
        std::for_each(long_strings_.begin(), long_strings_.end(),
                      [](LongString& string) { string.forget_text(); });
    }

private:
    [[nodiscard]] std::size_t match_any(const Field& text, std::size_t position) const noexcept;

    std::shared_ptr<Delim> set_;
    mutable std::vector<LongString> long_strings_; ///< of a set of few, the long ones; they lead it
};

} // namespace textio::parser
