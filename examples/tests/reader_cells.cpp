// Prints what the library's reader gives of a file, for those who compare: names, and all cells.
#include "advised.hpp"
#include "bytes.hpp"
#include "command_line.hpp"
#include "output.hpp"
#include "unicode.hpp"

#include "textio/reading.hpp"

#include <nlohmann/json.hpp>

#include <exception>

namespace {

using namespace detect_layout;

nlohmann::json cells_of(const std::string& file, const Settings& settings) {
    const Advised advised = advise(file, open_bytes(file), settings);
    auto names = nlohmann::json::array();
    for (const auto& column : advised.best().columns) {
        names.push_back(to_utf8(column.name));
    }
    auto rows = nlohmann::json::array();
    textio::reading::Reader reader(advised.best(), advised.input->text());
    std::u16string buffer;
    while (reader.next()) {
        auto row = nlohmann::json::array();
        for (const textio::Field& field : reader.fields()) {
            row.push_back(to_utf8(textio::reading::cell_value(field, reader.options(), buffer)));
        }
        rows.push_back(std::move(row));
    }
    const auto& marks = advised.best();
    const auto mark = [](char16_t unit) { return unit == 0 ? "" : to_utf8({&unit, 1}); };
    return {{"names", std::move(names)},
            {"rows", std::move(rows)},
            {"decimal", mark(marks.decimal_mark)},
            {"thousands", mark(marks.thousands_separator)}};
}

} // namespace

int main(int count, char** arguments) {
    try {
        const Settings settings = read_command_line(count, arguments);
        write_out(cells_of(settings.inputs.front(), settings).dump() + "\n");
        return 0;
    } catch (const std::exception& error) {
        complain(error.what());
        return 2;
    }
}
