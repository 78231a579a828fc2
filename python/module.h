// SPDX-License-Identifier: MIT
#pragma once

#include "python/values.h"

#include <algorithm>

namespace halvane_python {

// The parts of the module `halvane._engine`, a file each. They take what the Python part of the package has
// checked and give tuples and arrays, of which it makes its classes. Words are the numbers of the interface's
// enumerations.
void add_time(py::module_& module);
void add_sky(py::module_& module);
void add_events(py::module_& module);
void add_prayer(py::module_& module);
void add_crescent(py::module_& module);
void add_hijri(py::module_& module);

/// Does `work` with the interpreter unlocked, so that other threads of Python go on.
template <class Work>
auto unlocked(Work&& work) {
    const py::gil_scoped_release released;
    return work();
}

/// A one-dimensional array of numbers, whole in memory.
using Numbers = py::array_t<double, py::array::c_style | py::array::forcecast>;

/// Does `work(begin, end)` for parts of `size` values with the interpreter unlocked. In between Python looks
/// for signals: Ctrl-C ends a long array.
template <class Work>
void in_parts(std::size_t size, Work&& work) {
    constexpr std::size_t part = 32768;
    for (std::size_t begin = 0; begin < size; begin += part) {
        unlocked([&] { work(begin, std::min(begin + part, size)); });
        if (PyErr_CheckSignals() != 0)
            throw py::error_already_set();
    }
}

/// One array of `size` numbers to be filled, and where its numbers lie.
struct Column {
    explicit Column(std::size_t size) : array(static_cast<py::ssize_t>(size)), values(array.mutable_data()) {}
    py::array_t<double> array;
    double* values;
};

/// The array of a function's values, one for each number.
template <class Function>
py::array_t<double> each(const Numbers& numbers, const Function& function) {
    const auto size = static_cast<std::size_t>(numbers.size());
    const double* from = numbers.data();
    Column column(size);
    in_parts(size, [&](std::size_t begin, std::size_t end) {
        std::transform(from + begin, from + end, column.values + begin, function);
    });
    return column.array;
}

/// Tells Python's function of a long work and looks for signals; its exception ends the work and is raised by
/// `rethrow`.
class PythonProgress final : public halvane::Progress {
public:
    /// In     told  a function of the percentage that gives False to end the work, or None
    explicit PythonProgress(const py::object& told) : told_(told) {}
    bool goes_on(double percent) override;
    /// Raises what Python's function or a signal's handler raised, if it did.
    void rethrow();

private:
    const py::object& told_;
    py::object type_, value_, trace_;
};

/// Does a long work with the interpreter unlocked.
/// In     work  takes a halvane::Progress*
template <class Work>
auto told(const py::object& progress, Work&& work) {
    PythonProgress python(progress);
    try {
        return unlocked([&] { return work(&python); });
    } catch (const halvane::Error& error) {
        if (error.kind() == halvane::ErrorKind::cancelled)
            python.rethrow();
        throw;
    }
}

} // namespace halvane_python
