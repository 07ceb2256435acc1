#pragma once

#include "option_texts.hpp"
#include "settings.hpp"

#include <CLI/CLI.hpp>

#include <string>

namespace detect_layout {

/// Refuses what a conversion to an unsigned number would take without a word.
[[nodiscard]] const CLI::Validator& no_sign();

/// Declares the options with which a user says what he knows of a text, which all commands share.
/// They fill `settings` and `texts`, which must outlive `app`; `apply` has to follow.
void declare_known_options(CLI::App& app, Settings& settings, OptionTexts& texts);

/// Parses the command line, with the program's or the command's name in front. Gives the help or
/// the version if that is what the user asked for, else an empty text. Throws `UserError` for what
/// makes no sense.
[[nodiscard]] std::string parse(CLI::App& app, int count, const char* const* arguments);

} // namespace detect_layout
