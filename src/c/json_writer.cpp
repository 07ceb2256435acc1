#include "c/json_writer.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace textio::c {

namespace {

constexpr std::string_view hexadecimal = "0123456789abcdef";

/// Longer than a number of 17 digits with sign, mark and exponent.
using Digits = std::array<char, 40>;

/// The digits of `value` that give it back.
std::string shortest(double value) {
    Digits digits{};
    for (int precision = 15; precision <= 17; ++precision) {
        // Older standard libraries have no std::to_chars for such numbers.
        // NOLINTNEXTLINE(*-vararg): and a stream is much code to take along.
        std::snprintf(digits.data(), digits.size(), "%.*g", precision, value);
        if (std::strtod(digits.data(), nullptr) == value) {
            break;
        }
    }
    return with_point(digits.data());
}

} // namespace

std::string with_point(std::string number) {
    constexpr std::string_view usual = "+-0123456789e";
    const std::size_t mark = number.find_first_not_of(usual);
    if (mark != std::string::npos) {
        const std::size_t behind = std::min(number.find_first_of(usual, mark), number.size());
        number.replace(mark, behind - mark, ".");
    }
    return number;
}

void JsonWriter::key(std::string_view name) {
    separate();
    add_quoted(name);
    json_ += ':';
    is_first_ = true;
}

void JsonWriter::text(std::string_view utf8) {
    separate();
    add_quoted(utf8);
}

void JsonWriter::number(double value) {
    raw(std::isfinite(value) ? shortest(value) : std::string("null"));
}

void JsonWriter::open(char bracket) {
    separate();
    json_ += bracket;
    is_first_ = true;
}

void JsonWriter::close(char bracket) {
    json_ += bracket;
    is_first_ = false;
}

void JsonWriter::raw(std::string_view value) {
    separate();
    json_ += value;
}

void JsonWriter::separate() {
    if (!is_first_) {
        json_ += ',';
    }
    is_first_ = false;
}

void JsonWriter::add_quoted(std::string_view utf8) {
    json_ += '"';
    for (const char byte : utf8) {
        const auto code = static_cast<unsigned char>(byte);
        if (byte == '"' || byte == '\\') {
            json_ += '\\';
            json_ += byte;
        } else if (code < 0x20) {
            json_ += "\\u00";
            json_ += hexadecimal[code >> 4U];
            json_ += hexadecimal[code & 0xFU];
        } else {
            json_ += byte;
        }
    }
    json_ += '"';
}

} // namespace textio::c
