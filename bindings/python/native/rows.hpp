/// \file
/// Reads the records of a text and hands them to Python some at a time.
#pragma once

#include "answer.hpp"

#include <pybind11/pybind11.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <vector>

namespace binding {

/// Goes through the records of UTF-8 that a Python callable delivers.
class Rows {
public:
    /// `read` is called with a number and gives at most so many bytes, none at the end. Throws
    /// `std::invalid_argument` for a proposal or a policy that there is not.
    Rows(const Answer& answer, std::size_t proposal, pybind11::object read,
         const std::string& policy);

    /// Up to `count` records, each a tuple of its values, its line and the word for its fault;
    /// none at the end. What `read` throws passes through, behind the records before it.
    pybind11::list next(std::size_t count);

    /// Why there are no more records, in the words of the C interface.
    [[nodiscard]] std::string end() const;

private:
    /// Records that were read while other Python threads were running.
    struct Batch {
        std::u16string units;          ///< the values of all fields, one behind the other
        std::vector<std::size_t> ends; ///< where in `units` each field ends
        struct Record {
            std::size_t fields_end; ///< in `ends`
            std::size_t line;
            const char* fault;
        };
        std::vector<Record> records;
    };

    static std::size_t deliver(void* context, char* buffer, std::size_t size) noexcept;
    void fill(std::size_t count);
    void add_record();
    [[nodiscard]] pybind11::list taken() const;

    pybind11::object read_;
    std::unique_ptr<textio_reader, Free> reader_;
    std::exception_ptr failure_; ///< what `read_` threw
    textio_status status_ = TEXTIO_OK;
    Batch batch_;
};

} // namespace binding
