/// \file
/// Writes JSON, value after value, on one line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace textio::c {

/// `number` with a point for its decimal mark. A program may have set a locale, and its mark may be
/// several bytes long.
[[nodiscard]] std::string with_point(std::string number);

/// Calls come in the order (value | open member* close): a member of an object is a `key` and a
/// value, one of a list a value. What the names promise is not checked.
class JsonWriter {
public:
    void open_object() { open('{'); }
    void close_object() { close('}'); }
    void open_list() { open('['); }
    void close_list() { close(']'); }

    /// The name of the member that follows.
    void key(std::string_view name);

    /// A text in UTF-8.
    void text(std::string_view utf8);

    void number(std::size_t value) { raw(std::to_string(value)); }

    /// The shortest of 15 to 17 digits that mean this number; `null` for one that is not finite.
    void number(double value);

    void boolean(bool value) { raw(value ? "true" : "false"); }
    void null() { raw("null"); }

    /// What has been written.
    [[nodiscard]] std::string&& take() noexcept { return std::move(json_); }

private:
    void open(char bracket);
    void close(char bracket);
    void raw(std::string_view value);
    void separate();
    void add_quoted(std::string_view utf8);

    std::string json_;
    bool is_first_ = true; ///< nothing stands before the next value, or a key does
};

} // namespace textio::c
