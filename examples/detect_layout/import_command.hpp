#pragma once

namespace detect_layout {

/// `detect_layout import FILE --for NAME`: prints the statement that reads the file in a tool.
/// Gives the exit status; throws `UserError` for what makes no sense.
int run_import(int count, const char* const* arguments);

} // namespace detect_layout
