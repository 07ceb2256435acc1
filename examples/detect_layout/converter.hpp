#pragma once

#include <unicode/localpointer.h>
#include <unicode/ucnv.h>

#include <cstddef>
#include <string>

namespace detect_layout {

/// A converter from the character set of that name, nothing if ICU has none. Each byte sequence
/// that it cannot decode becomes one U+FFFD and is counted in `undecodable`, which must outlive it.
[[nodiscard]] icu::LocalUConverterPointer open_converter(const std::string& character_set,
                                                         std::size_t& undecodable);

} // namespace detect_layout
