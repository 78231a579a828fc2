// SPDX-License-Identifier: MIT
#pragma once

// How the interface's small values go to Python and come from it: as tuples of their members, in their order.

#include "halvane/hijri.h"
#include "halvane/prayer.h"
#include "halvane/qiblah.h"

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <tuple>

namespace halvane_python {

namespace py = pybind11;

/// Loads and casts a value by a tuple of its members.
template <class Value, class... Members>
struct ByTuple {
    using Tuple = std::tuple<Members...>;
    PYBIND11_TYPE_CASTER(Value, pybind11::detail::const_name("tuple"));

    bool load(pybind11::handle source, bool convert) {
        pybind11::detail::make_caster<Tuple> members;
        if (!members.load(source, convert))
            return false;
        value = std::apply([](auto&&... member) { return Value{member...}; },
                           pybind11::detail::cast_op<Tuple>(std::move(members)));
        return true;
    }
};

} // namespace halvane_python

namespace pybind11::detail {

template <>
struct type_caster<halvane::Date> : halvane_python::ByTuple<halvane::Date, int, int, int> {
    static handle cast(const halvane::Date& date, return_value_policy, handle) {
        return make_tuple(date.year, date.month, date.day).release();
    }
};

template <>
struct type_caster<halvane::HijriDate> : halvane_python::ByTuple<halvane::HijriDate, int, int, int> {
    static handle cast(const halvane::HijriDate& date, return_value_policy, handle) {
        return make_tuple(date.year, date.month, date.day).release();
    }
};

template <>
struct type_caster<halvane::Observer> : halvane_python::ByTuple<halvane::Observer, double, double, double> {
    static handle cast(const halvane::Observer& observer, return_value_policy, handle) {
        return make_tuple(observer.latitude, observer.longitude, observer.height).release();
    }
};

template <>
struct type_caster<halvane::Horizon> : halvane_python::ByTuple<halvane::Horizon, bool, double, double> {};

template <>
struct type_caster<halvane::CriterionLimits>
    : halvane_python::ByTuple<halvane::CriterionLimits, double, double, double, double, double> {};

/// A Julian day and the number of its scale.
template <>
struct type_caster<halvane::Instant> {
    PYBIND11_TYPE_CASTER(halvane::Instant, const_name("tuple"));

    bool load(handle source, bool convert) {
        make_caster<std::tuple<double, int>> members;
        if (!members.load(source, convert))
            return false;
        const auto [jd, scale] = cast_op<std::tuple<double, int>>(std::move(members));
        value = {jd, static_cast<halvane::TimeScale>(scale)};
        return true;
    }
    static handle cast(const halvane::Instant& instant, return_value_policy, handle) {
        return make_tuple(instant.jd, static_cast<int>(instant.scale)).release();
    }
};

/// Hours, and the number of the word for their absence.
template <>
struct type_caster<halvane::ClockTime> {
    PYBIND11_TYPE_CASTER(halvane::ClockTime, const_name("tuple"));

    bool load(handle, bool) { return false; }
    static handle cast(const halvane::ClockTime& time, return_value_policy, handle) {
        return make_tuple(time.hours, static_cast<int>(time.missing)).release();
    }
};

} // namespace pybind11::detail
