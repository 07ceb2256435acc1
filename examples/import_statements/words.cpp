#include "words.hpp"

#include <algorithm>
#include <map>
#include <set>

namespace import_statements {

namespace {

std::string doubled(std::string_view text, char quote) {
    std::string result(1, quote);
    for (const char unit : text) {
        result.append(unit == quote ? 2 : 1, unit);
    }
    return result += quote;
}

std::string hexadecimal(unsigned char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    return {digits[byte >> 4U], digits[byte & 0xFU]};
}

/// A text in double quotes; a control character without an escape of its own becomes
/// `control_escape` with two hexadecimal digits.
std::string escaped(std::string_view text, std::string_view control_escape) {
    std::string result = "\"";
    for (const char unit : text) {
        const auto byte = static_cast<unsigned char>(unit);
        if (unit == '"' || unit == '\\') {
            result.append("\\").append(1, unit);
        } else if (unit == '\n') {
            result += "\\n";
        } else if (unit == '\r') {
            result += "\\r";
        } else if (unit == '\t') {
            result += "\\t";
        } else if (byte < 0x20 || byte == 0x7F) {
            result.append(control_escape).append(hexadecimal(byte));
        } else {
            result += unit;
        }
    }
    return result += '"';
}

bool is_inside_character(char unit) {
    return (static_cast<unsigned char>(unit) & 0xC0U) == 0x80;
}

/// The first `most` bytes of `text`, without half a character.
std::string cut(std::string_view text, std::size_t most) {
    if (text.size() > most) {
        while (most > 0 && is_inside_character(text[most])) {
            --most;
        }
    }
    return std::string(text.substr(0, most));
}

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char unit) {
        return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
    });
    return text;
}

} // namespace

std::string python_text(std::string_view text) {
    return escaped(text, "\\x");
}

std::string r_text(std::string_view text) {
    return escaped(text, "\\x");
}

std::string r_vector(const std::vector<std::string>& texts) {
    return "c(" + joined(each(texts, r_text), ", ") + ")";
}

std::string r_numbers(const Table& table, const std::string& texts) {
    std::string plain = texts;
    if (!table.thousands.empty()) {
        plain = "gsub(" + r_text(table.thousands) + ", \"\", " + plain + ", fixed = TRUE)";
    }
    if (table.decimal != ".") {
        plain = "sub(" + r_text(table.decimal) + ", \".\", " + plain + ", fixed = TRUE)";
    }
    return "as.numeric(" + plain + ")";
}

std::string python_list(const std::vector<std::string>& texts) {
    return "[" + joined(each(texts, python_text), ", ") + "]";
}

std::string dot_command_text(std::string_view text) {
    std::string result = "\"";
    for (const char unit : text) {
        const auto byte = static_cast<unsigned char>(unit);
        if (unit == '"' || unit == '\\') {
            result.append("\\").append(1, unit);
        } else if (byte < 0x20) {
            constexpr unsigned char eight = 8;
            result.append("\\0")
                .append(1, static_cast<char>('0' + byte / eight))
                .append(1, static_cast<char>('0' + byte % eight));
        } else {
            result += unit;
        }
    }
    return result += '"';
}

std::string sql_text(std::string_view text) {
    return doubled(text, '\'');
}

std::string sql_name(std::string_view name) {
    return doubled(name, '"');
}

std::string postgres_name(std::string_view name) {
    const auto is_control = [](char unit) { return static_cast<unsigned char>(unit) < 0x20; };
    if (std::none_of(name.begin(), name.end(), is_control)) {
        return sql_name(name);
    }
    std::string escaped;
    for (const char unit : name) {
        if (is_control(unit)) {
            escaped.append("\\00").append(hexadecimal(static_cast<unsigned char>(unit)));
        } else {
            escaped.append(unit == '\\' ? 2 : 1, unit);
        }
    }
    return "U&" + sql_name(escaped);
}

std::string m_text(std::string_view text) {
    std::string result = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (text[i] == '"') {
            result += "\"\"";
        } else if (text.substr(i).starts_with("#(")) {
            result += "#(#)";
        } else if (byte < 0x20) {
            result.append("#(00").append(hexadecimal(byte)).append(")");
        } else {
            result += text[i];
        }
    }
    return result += '"';
}

std::string shell_command(const std::vector<std::string>& words) {
    constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                       "0123456789_-./=,:@%+";
    std::string command;
    for (const std::string& word : words) {
        command += command.empty() ? "" : " ";
        if (!word.empty() && word.find_first_not_of(plain) == std::string::npos) {
            command += word;
            continue;
        }
        command += '\'';
        for (const char unit : word) {
            command += unit == '\'' ? "'\\''" : std::string(1, unit);
        }
        command += '\'';
    }
    return command;
}

std::string one_line(std::string_view text) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(),
        [](char unit) { return static_cast<unsigned char>(unit) < 0x20 || unit == 0x7F; }, ' ');
    return result;
}

std::string joined(const std::vector<std::string>& items, std::string_view between) {
    std::string result;
    for (std::size_t i = 0; i < items.size(); ++i) {
        result.append(i == 0 ? "" : between).append(items[i]);
    }
    return result;
}

std::vector<std::string> column_names(const Table& table, std::size_t most_bytes) {
    std::vector<std::string> names;
    std::set<std::string> taken;
    std::map<std::string, std::size_t> copies;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        std::string wanted = table.columns[i].name;
        std::erase(wanted, '\0');
        wanted = wanted.empty() ? "column_" + std::to_string(i + 1) : cut(wanted, most_bytes);
        std::string name = wanted;
        std::size_t& copy = copies.try_emplace(lower(wanted), 1).first->second;
        while (!taken.insert(lower(name)).second) {
            const std::string number = "_" + std::to_string(++copy);
            name = cut(wanted, most_bytes - number.size()) + number;
        }
        names.push_back(std::move(name));
    }
    return names;
}

std::vector<std::string> column_names(const Table& table) {
    constexpr std::size_t enough = 10000;
    return column_names(table, enough);
}

std::vector<std::string> missing_texts(const Table& table) {
    std::vector<std::string> texts{""};
    texts.insert(texts.end(), table.missing.begin(), table.missing.end());
    return texts;
}

std::string table_name(const Table& table) {
    const std::string_view file = table.file;
    const std::size_t slash = file.find_last_of("/\\");
    const std::string_view base = slash == std::string_view::npos ? file : file.substr(slash + 1);
    std::string name;
    for (const char unit : base.substr(0, base.find('.', 1))) {
        const bool is_plain = (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
                              (unit >= '0' && unit <= '9') ||
                              static_cast<unsigned char>(unit) > 0x7F;
        name += is_plain ? unit : '_';
    }
    return name.empty() ? "data" : cut(name, 60);
}

std::string Arguments::lines(std::string_view indent, bool closes) const {
    std::string text;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const bool has_end = closes || i + 1 < lines_.size();
        text.append(indent).append(lines_[i]).append(has_end ? end_ : "").append("\n");
    }
    return text;
}

std::vector<std::string> each(const std::vector<std::string>& texts,
                              std::string (*change)(std::string_view text)) {
    std::vector<std::string> changed;
    for (const std::string& text : texts) {
        changed.push_back(change(text));
    }
    return changed;
}

} // namespace import_statements
