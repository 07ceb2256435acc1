/// \file
/// Texts of which somebody has said how they are laid out.
#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace accuracy {

/// What a label says of one file. README.md beside this file tells what its members mean.
using Label = nlohmann::json;

/// A text with its label.
struct LabelledText {
    Label label;
    std::u16string text;
};

/// Reads one label from each line of a file. Throws `std::runtime_error` if it cannot be read, and
/// `nlohmann::json::exception` for a line that is no label.
[[nodiscard]] std::vector<Label> read_labels(const std::filesystem::path& file);

/// The text of the labelled file, which is in `folder` under the label's id: decoded, without a
/// byte order mark, and as many of its lines as the label is about. Nothing if there is no such
/// file. Throws `std::runtime_error` for an unknown character set.
[[nodiscard]] std::optional<std::u16string> read_text(const std::filesystem::path& folder,
                                                      const Label& label);

[[nodiscard]] std::string to_utf8(std::u16string_view text);

} // namespace accuracy
