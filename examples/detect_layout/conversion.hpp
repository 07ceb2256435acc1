#pragma once

#include "record_writer.hpp"
#include "settings.hpp"
#include "textio/reading.hpp"

#include <cstddef>
#include <string>

namespace detect_layout {

/// What is to be converted, and to what.
struct ConversionSettings {
    std::string file;         ///< `-` for standard input
    std::string output = "-"; ///< `-` for standard output
    bool replaces = false;    ///< an output that exists
    TableFormat format = TableFormat::comma_separated;
    bool iso_dates = false;
    textio::reading::Policy policy = textio::reading::Policy::pad;
    std::size_t reports = 10;               ///< lines on what is irregular, at most
    std::size_t longest_record = 0x1000000; ///< in UTF-16 code units
    Settings known;                         ///< of the text
};

/// Writes the table of the file as it was asked for. What does not fit is told on standard error.
/// Gives whether all fits. Throws `UserError` for what is wrong with the input, with its name in
/// front, and `std::runtime_error` for what is wrong with the output. There is no output file then.
[[nodiscard]] bool convert(const ConversionSettings& settings);

} // namespace detect_layout
