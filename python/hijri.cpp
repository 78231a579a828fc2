// SPDX-License-Identifier: MIT
#include "python/module.h"

#include <vector>

namespace halvane_python {
namespace {

using halvane::Date;
using halvane::Engine;
using halvane::HijriChoices;
using halvane::HijriDate;

py::list hijri_rules() {
    py::list list;
    for (const halvane::HijriRule& rule : halvane::hijri_rules())
        list.append(py::make_tuple(rule.key, rule.name, rule.arabic_name, rule.told, rule.source,
                                   rule.asks_place, rule.asks_criterion, rule.asks_region));
    return list;
}

py::list hijri_months(const Engine& engine, const HijriChoices& choices, int first_year, int first_month,
                      int last_year, int last_month, const py::object& progress) {
    py::list list;
    for (const halvane::HijriMonth& month : told(progress, [&](halvane::Progress* python) {
             return halvane::hijri_months(engine, choices, first_year, first_month, last_year, last_month,
                                          python);
         }))
        list.append(py::make_tuple(month.year, month.month, month.first_day, month.days, month.notes,
                                   month.may_differ, month.margin, month.margin_unit, month.announced_by));
    return list;
}

HijriDate hijri_date(const Engine& engine, const HijriChoices& choices, const Date& date) {
    return unlocked([&] { return halvane::hijri_date(engine, choices, date); });
}

Date civil_date_of(const Engine& engine, const HijriChoices& choices, const HijriDate& date) {
    return unlocked([&] { return halvane::civil_date_of(engine, choices, date); });
}

/// Year, month, first day and who announced it.
using Announced = std::vector<std::tuple<int, int, Date, std::string>>;

void set_announced(HijriChoices& choices, const Announced& announced) {
    choices.announced.clear();
    for (const auto& [year, month, first_day, announced_by] : announced)
        choices.announced.push_back({year, month, first_day, announced_by});
}

} // namespace

void add_hijri(py::module_& module) {
    py::class_<HijriChoices>(module, "HijriChoices")
        .def(py::init<>())
        .def_readwrite("rule", &HijriChoices::rule)
        .def_readwrite("place", &HijriChoices::place)
        .def_readwrite("clock", &HijriChoices::clock)
        .def_readwrite("criterion", &HijriChoices::criterion)
        .def_readwrite("seen_class", &HijriChoices::seen_class)
        .def_property("limits", nullptr,
                      [](HijriChoices& own, const halvane::CriterionLimits& limits) { own.limits = limits; })
        .def_readwrite("west", &HijriChoices::west)
        .def_readwrite("south", &HijriChoices::south)
        .def_readwrite("east", &HijriChoices::east)
        .def_readwrite("north", &HijriChoices::north)
        .def_property(
            "before", [](const HijriChoices& own) { return static_cast<int>(own.before); },
            [](HijriChoices& own, int before) { own.before = static_cast<halvane::SeenBefore>(before); })
        .def_property("announced", nullptr, &set_announced);
    module.def("tabular_hijri", &halvane::tabular_hijri);
    module.def("tabular_civil", &halvane::tabular_civil);
    module.def("hijri_rules", &hijri_rules);
    module.def("hijri_months", &hijri_months);
    module.def("hijri_date", &hijri_date);
    module.def("civil_date_of", &civil_date_of);
}

} // namespace halvane_python
