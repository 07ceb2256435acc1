/// \file
/// The types of the C interface, and how a call can end. `textio/c.h` includes them.
#ifndef TEXTIO_C_TYPES_H
#define TEXTIO_C_TYPES_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// One code unit of UTF-16.
#ifdef __cplusplus
typedef char16_t textio_unit;
#else
typedef uint16_t textio_unit;
#endif

/// How a call ended: one of the `TEXTIO_...` constants that follow.
typedef int textio_status;

enum {
    TEXTIO_OK = 0,        ///< it did what it is for
    TEXTIO_NO_MEMORY = 1, ///< memory ran out; the call can be repeated
    TEXTIO_BAD_ARGUMENT =
        2, ///< a null pointer, a proposal that is not there, a call at a wrong time
    TEXTIO_UNKNOWN_NAME = 3,  ///< there is no hint of that name
    TEXTIO_BAD_VALUE = 4,     ///< the hint cannot have that value, or contradicts another
    TEXTIO_SOURCE_FAILED = 5, ///< the callback that delivers bytes said so; it can be asked again
    TEXTIO_INTERNAL = 6       ///< anything else, which is not meant to happen
};

/// Stands for a line that is not there.
#define TEXTIO_NO_LINE ((size_t)-1)

/// What a callback gives that cannot deliver.
#define TEXTIO_READ_FAILED ((size_t)-1)

/// Delivers the next bytes of a text: puts up to `size` of them, which is at least 1, to `buffer`
/// and gives their number; 0 means that there are no more, `TEXTIO_READ_FAILED` that they cannot be
/// had. `context` is what was handed over along with the callback. It must not throw.
typedef size_t (*textio_read)(void* context, char* buffer, size_t size);

/// What is known about a text beforehand.
typedef struct textio_hints textio_hints;

/// What was found. It keeps copies of all that it tells, and nothing of the text.
typedef struct textio_layout textio_layout;

/// Goes through the records of a text.
typedef struct textio_reader textio_reader;

#ifdef __cplusplus
}
#endif

#endif
