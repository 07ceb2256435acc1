/// \file
/// The border: what is thrown on this side of it is a status and an error text on the other.
#pragma once

#include "textio/c.h"

#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace textio::c {

/// Thrown where a call is to end with a status other than OK.
struct Failure {
    textio_status status;
    std::string text;
};

/// The callback of a byte source could not deliver. Nothing is allocated to say so.
struct SourceFailure {};

/// Notes the error text of this thread, cut to its room, and gives `status` back.
textio_status failed(textio_status status, std::string_view text) noexcept;

/// Gives how `action` ended.
template <class Action>
textio_status guarded(Action action) noexcept {
    try {
        action();
        return TEXTIO_OK;
    } catch (const Failure& failure) {
        return failed(failure.status, failure.text);
    } catch (const SourceFailure&) {
        return failed(TEXTIO_SOURCE_FAILED, "the bytes cannot be read");
    } catch (const std::bad_alloc&) {
        return failed(TEXTIO_NO_MEMORY, "there is not enough memory");
    } catch (const std::length_error&) {
        return failed(TEXTIO_NO_MEMORY, "there cannot be enough memory");
    } catch (const std::exception& unexpected) {
        return failed(TEXTIO_INTERNAL, unexpected.what());
    } catch (...) {
        return failed(TEXTIO_INTERNAL, "something unknown went wrong");
    }
}

/// Ends the call unless `holds`.
inline void require(bool holds, const char* complaint) {
    if (!holds) {
        throw Failure{TEXTIO_BAD_ARGUMENT, complaint};
    }
}

} // namespace textio::c
