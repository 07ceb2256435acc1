#pragma once

namespace detect_layout {

/// `detect_layout convert`: writes a file's table in a plain format.
int run_convert(int count, const char* const* arguments);

} // namespace detect_layout
