#include "labelled_text.hpp"

#include <unicode/unistr.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace accuracy {

namespace {

constexpr char16_t byte_order_mark = 0xFEFF;

/// As much of each awkward file as its label is about.
constexpr std::size_t lines_of_hard_files = 300;

std::u16string decode(const std::string& bytes, std::string character_set) {
    const std::string_view marked = "-sig";
    if (character_set.ends_with(marked)) {
        character_set.resize(character_set.size() - marked.size());
    }
    const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                  character_set.c_str());
    if (text.isBogus() != 0 || (text.isEmpty() != 0 && !bytes.empty())) {
        throw std::runtime_error("cannot decode " + character_set);
    }
    const std::u16string_view units(text.getBuffer(), static_cast<std::size_t>(text.length()));
    return std::u16string(units.substr(units.starts_with(byte_order_mark) ? 1 : 0));
}

std::u16string first_lines(std::u16string text, std::size_t lines) {
    std::size_t end = 0;
    for (std::size_t line = 0; line < lines; ++line) {
        end = text.find(u'\n', end);
        if (end == std::u16string::npos) {
            return text;
        }
        ++end;
    }
    text.resize(end);
    return text;
}

} // namespace

std::vector<Label> read_labels(const std::filesystem::path& file) {
    std::ifstream lines(file);
    if (!lines) {
        throw std::runtime_error("cannot read " + file.string());
    }
    std::vector<Label> labels;
    for (std::string line; std::getline(lines, line);) {
        labels.push_back(Label::parse(line));
    }
    return labels;
}

std::optional<std::u16string> read_text(const std::filesystem::path& folder, const Label& label) {
    std::ifstream file(folder / label.at("id").get<std::string>(), std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::u16string text = decode(bytes, label.at("encoding"));
    return label.at("set") == "hard" ? first_lines(std::move(text), lines_of_hard_files) : text;
}

std::string to_utf8(std::u16string_view text) {
    std::string bytes;
    icu::UnicodeString(text.data(), static_cast<std::int32_t>(text.size())).toUTF8String(bytes);
    return bytes;
}

} // namespace accuracy
