#include "answer.hpp"
#include "rows.hpp"

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace py = pybind11;

namespace {

std::unique_ptr<binding::Answer> detect(const py::bytes& bytes,
                                        const std::vector<binding::Hint>& hints) {
    const auto view = static_cast<std::string_view>(bytes);
    const py::gil_scoped_release others_may_run;
    return std::make_unique<binding::Answer>(view, hints);
}

std::vector<std::string> hint_names() {
    std::vector<std::string> names;
    for (std::size_t index = 0; textio_hint_name(index) != nullptr; ++index) {
        names.emplace_back(textio_hint_name(index));
    }
    return names;
}

} // namespace

PYBIND11_MODULE(_native, module) {
    module.doc() = "The library behind the package; use the package instead.";
    module.attr("version") = textio_version();
    module.def("hint_names", &hint_names);
    module.def("detect", &detect, py::arg("bytes"), py::arg("hints"));
    py::class_<binding::Answer>(module, "Answer").def("json", &binding::Answer::json);
    py::class_<binding::Rows>(module, "Rows")
        .def(py::init<const binding::Answer&, std::size_t, py::object, const std::string&>(),
             py::arg("answer"), py::arg("proposal"), py::arg("read"), py::arg("policy"))
        .def("next", &binding::Rows::next, py::arg("count"))
        .def("end", &binding::Rows::end);
}
