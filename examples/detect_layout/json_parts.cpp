#include "json_parts.hpp"

#include "textio/names.hpp"
#include "unicode.hpp"

#include <fmt/format.h>

#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace detect_layout {

namespace {

/// JSON has no infinity.
Json finite_or_null(double value) {
    return std::isfinite(value) ? Json(value) : Json();
}

/// The name of a file whose bytes are no text.
std::string hexadecimal(std::string_view bytes) {
    std::string digits;
    for (const char byte : bytes) {
        digits += fmt::format("{:02x}", static_cast<unsigned char>(byte));
    }
    return digits;
}

Json candidate_list(const Explanation& explanation) {
    Json list = Json::array();
    for (const auto& [layout, values, verdict] : explanation.candidates) {
        list.push_back({{"layout", layout},
                        {"data_variation", finite_or_null(values.data_variation)},
                        {"header_lines", values.header_lines},
                        {"num_variables", values.num_variables},
                        {"classified_variables", values.classified_variables},
                        {"numeric_variables", values.numeric_variables},
                        {"temporal_variables", values.temporal_variables},
                        {"datetime_variables", values.datetime_variables},
                        {"punctuation_variables", values.punctuation_variables},
                        {"prior_rank", finite_or_null(values.prior_rank)},
                        {"verdict", verdict}});
    }
    return list;
}

} // namespace

void add_layout(Json& answer, const textio::GenericStrategy& layout) {
    const auto& options = layout.options();
    std::vector<std::string> delimiters;
    for (const std::u16string& delimiter : options.delimiters) {
        delimiters.push_back(to_utf8(delimiter));
    }
    const bool splits = layout.mode() == textio::enums::StrategyMode::delimited ||
                        layout.mode() == textio::enums::StrategyMode::space_aligned;
    const bool has_widths = layout.mode() == textio::enums::StrategyMode::fixed_width;
    answer["kind"] = textio::name_of(layout.mode());
    answer["delimiters"] = splits ? Json(std::move(delimiters)) : Json::array();
    answer["field_widths"] = has_widths ? Json(options.field_widths) : Json::array();
}

void add_input(Json& answer, const std::string& file, const TextInput& input) {
    const std::string& rival = input.character_set().rival;
    answer["charset"] = input.character_set().name;
    answer["charset_rival"] = rival.empty() ? Json() : Json(rival);
    answer["compression"] = input.is_unpacked() ? Json("gzip") : Json();
    answer["undecodable"] = input.undecodable();
    answer["cut"] = input.is_cut();
    if (!is_utf8(file)) {
        answer["file_bytes"] = hexadecimal(file);
    }
}

void add_explanation(Json& answer, const std::optional<Explanation>& explanation) {
    if (explanation) {
        answer["candidates"] = candidate_list(*explanation);
        answer["outcome"] = explanation->outcome;
    }
}

std::string json_line(const Json& answer) {
    return answer.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace detect_layout
