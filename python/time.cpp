// SPDX-License-Identifier: MIT
#include "python/module.h"

namespace halvane_python {
namespace {

using halvane::Clock;
using halvane::Instant;

py::tuple civil_dates(const Numbers& days) {
    const auto size = static_cast<std::size_t>(days.size());
    const double* from = days.data();
    py::array_t<std::int32_t> year(days.size()), month(days.size()), day(days.size());
    std::int32_t* years = year.mutable_data();
    std::int32_t* months = month.mutable_data();
    std::int32_t* numbers = day.mutable_data();
    in_parts(size, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            const halvane::Date date = halvane::civil_date(from[i]);
            years[i] = date.year;
            months[i] = date.month;
            numbers[i] = date.day;
        }
    });
    return py::make_tuple(year, month, day);
}

} // namespace

void add_time(py::module_& module) {
    module.def("julian_day", &halvane::julian_day);
    module.def("civil_date", &halvane::civil_date);
    module.def("civil_dates", &civil_dates);
    module.def("delta_t", &halvane::delta_t);
    module.def("delta_ts", [](const Numbers& days) { return each(days, halvane::delta_t); });
    module.def("ut1", &Instant::ut1);
    module.def("dynamical", &Instant::dynamical);
    py::class_<Clock>(module, "Clock")
        .def_static("fixed", &Clock::fixed)
        .def_static("of_zone", &Clock::of_zone)
        .def("hours_ahead", &Clock::hours_ahead)
        .def("zone_name", &Clock::zone_name);
}

} // namespace halvane_python
