#include "rows.hpp"

#include <algorithm>
#include <bit>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace py = pybind11;

namespace binding {

namespace {

/// Of a lone surrogate Python makes U+FFFD, as it does when it decodes.
py::object python_text(const char16_t* units, std::size_t count) {
    int order = std::endian::native == std::endian::little ? -1 : 1;
    PyObject* text =
        PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(units),
                              static_cast<Py_ssize_t>(count * sizeof(char16_t)), "replace", &order);
    if (text == nullptr) {
        throw py::error_already_set();
    }
    return py::reinterpret_steal<py::object>(text);
}

} // namespace

Rows::Rows(const Answer& answer, std::size_t proposal, py::object read, const std::string& policy)
    : read_(std::move(read)) {
    textio_reader* reader = nullptr;
    check(textio_reader_source(answer.handle(), proposal, &Rows::deliver, this, &reader));
    reader_.reset(reader);
    check(textio_reader_policy(reader, policy.c_str()));
}

py::list Rows::next(std::size_t count) {
    batch_ = {};
    if (status_ == TEXTIO_OK) {
        const py::gil_scoped_release others_may_run;
        fill(count);
    }
    if (batch_.records.empty() && status_ != TEXTIO_OK) {
        const textio_status status = std::exchange(status_, TEXTIO_OK);
        if (failure_) {
            std::rethrow_exception(std::exchange(failure_, nullptr));
        }
        check(status);
    }
    return taken();
}

std::string Rows::end() const {
    return textio_reader_end(reader_.get());
}

std::size_t Rows::deliver(void* context, char* buffer, std::size_t size) noexcept {
    auto& rows = *static_cast<Rows*>(context);
    const py::gil_scoped_acquire our_turn;
    try {
        const auto bytes = rows.read_(size).cast<py::bytes>();
        const auto view = static_cast<std::string_view>(bytes);
        if (view.size() > size) {
            throw std::invalid_argument("the file gives more bytes than were asked for");
        }
        std::copy(view.begin(), view.end(), buffer);
        return view.size();
    } catch (...) {
        rows.failure_ = std::current_exception();
        return TEXTIO_READ_FAILED;
    }
}

void Rows::fill(std::size_t count) {
    int has_record = 0;
    while (batch_.records.size() < count) {
        status_ = textio_reader_next(reader_.get(), &has_record);
        if (status_ != TEXTIO_OK || has_record == 0) {
            return;
        }
        add_record();
    }
}

void Rows::add_record() {
    textio_reader* reader = reader_.get();
    const std::size_t fields = textio_reader_fields(reader);
    for (std::size_t field = 0; field < fields; ++field) {
        std::size_t length = 0;
        const textio_unit* value = textio_reader_field_utf16(reader, field, &length);
        if (value == nullptr) {
            throw std::bad_alloc();
        }
        batch_.units.append(value, length);
        batch_.ends.push_back(batch_.units.size());
    }
    batch_.records.push_back(
        {batch_.ends.size(), textio_reader_line(reader), textio_reader_fault(reader)});
}

py::list Rows::taken() const {
    py::list records;
    std::size_t field = 0;
    std::size_t begin = 0;
    for (const Batch::Record& record : batch_.records) {
        py::list values;
        for (; field < record.fields_end; ++field) {
            const std::size_t end = batch_.ends[field];
            values.append(python_text(batch_.units.data() + begin, end - begin));
            begin = end;
        }
        records.append(py::make_tuple(values, record.line, record.fault));
    }
    return records;
}

} // namespace binding
