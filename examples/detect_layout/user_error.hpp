#pragma once

#include <stdexcept>

namespace detect_layout {

/// Something that the user has to put right. The text is what the user is told, on one line.
class UserError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace detect_layout
