// SPDX-License-Identifier: MIT
#include "python/module.h"

namespace halvane_python {

bool PythonProgress::goes_on(double percent) {
    const py::gil_scoped_acquire acquired;
    try {
        if (PyErr_CheckSignals() != 0)
            throw py::error_already_set();
        return told_.is_none() || !told_(percent).is(py::bool_(false));
    } catch (py::error_already_set& raised) {
        type_ = raised.type();
        value_ = raised.value();
        trace_ = raised.trace();
        return false;
    }
}

void PythonProgress::rethrow() {
    if (!type_)
        return;
    PyErr_Restore(type_.release().ptr(), value_.release().ptr(), trace_.release().ptr());
    throw py::error_already_set();
}

namespace {

using halvane::Engine;

Engine engine_of_data(const py::bytes& termfull, const py::bytes& term, const py::bytes& mterm,
                      const py::bytes& elp, const py::bytes& world) {
    return Engine(halvane::EngineData{std::string_view(termfull), std::string_view(term),
                                      std::string_view(mterm), std::string_view(elp),
                                      std::string_view(world)});
}

/// Raises the package's own exception, which its Python part defines.
void raise_in_python(const halvane::Error& error) {
    const py::object raised =
        py::module_::import("halvane._errors").attr("error_of")(static_cast<int>(error.kind()), error.what());
    PyErr_SetObject(py::type::of(raised).ptr(), raised.ptr());
}

} // namespace
} // namespace halvane_python

PYBIND11_MODULE(_engine, module) {
    using namespace halvane_python;
    module.doc() = "The engine in C++. The functions of the package halvane are made of these.";
    // NOLINTNEXTLINE(performance-unnecessary-value-param): the form that is asked for
    py::register_exception_translator([](std::exception_ptr failure) {
        try {
            if (failure)
                std::rethrow_exception(failure);
        } catch (const halvane::Error& error) {
            raise_in_python(error);
        }
    });
    py::class_<Engine>(module, "Engine")
        .def(py::init<>(), py::call_guard<py::gil_scoped_release>())
        .def(py::init<const std::string&>(), py::call_guard<py::gil_scoped_release>())
        .def_static("of_data", &engine_of_data);
    module.def("version", &halvane::version);
    add_time(module);
    add_sky(module);
    add_events(module);
    add_prayer(module);
    add_crescent(module);
    add_hijri(module);
}
