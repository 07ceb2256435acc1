#include "converter.hpp"

#include "unicode.hpp"

#include <unicode/ucnv_cb.h>

#include <cstdint>

namespace detect_layout {

namespace {

/// Called by the converter for each byte sequence that it cannot decode, also for one that the
/// text's end cuts short. `counter` is the count.
void replace_and_count(const void* counter, UConverterToUnicodeArgs* arguments,
                       const char* /*bytes*/, std::int32_t /*length*/,
                       UConverterCallbackReason reason, UErrorCode* status) {
    if (reason > UCNV_IRREGULAR) {
        return; // the converter is reset, closed or cloned
    }
    ++*static_cast<std::size_t*>(const_cast<void*>(counter));
    *status = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(arguments, &replacement_character, 1, 0, status);
}

} // namespace

icu::LocalUConverterPointer open_converter(const std::string& character_set,
                                           std::size_t& undecodable) {
    UErrorCode status = U_ZERO_ERROR;
    icu::LocalUConverterPointer converter(ucnv_open(character_set.c_str(), &status));
    ucnv_setToUCallBack(converter.getAlias(), replace_and_count, &undecodable, nullptr, nullptr,
                        &status);
    if (U_FAILURE(status) != 0) {
        converter.adoptInstead(nullptr);
    }
    return converter;
}

} // namespace detect_layout
