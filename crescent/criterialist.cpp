// SPDX-License-Identifier: MIT
#include "crescent/criterialist.h"

#include "base/numberformat.h"

#include <memory>
#include <span>

namespace halvane {
namespace {

using Row = CatalogueRow;

Value number_of(const std::optional<JudgedPlace>& place, double JudgedPlace::*coordinate) {
    return place ? Value((*place).*coordinate) : Value();
}

constexpr ColumnOf<Row> row_columns[] = {
    {{"criterion", {"Criterion", "المعيار"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.criterion->key); }},
    {{"name", {"Name", "الاسم"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.criterion->name.english); }},
    {{"name_arabic", {"Arabic name", "الاسم بالعربية"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.criterion->name.arabic); }},
    {{"source", {"Source", "المصدر"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.criterion->source); }},
    {{"moment", {"Moment", "اللحظة"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(moment_text(*row.criterion)); }},
    {{"frame", {"Frame", "الإطار"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.criterion->frame.english); }},
    {{"measure", {"Measure", "المقياس"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.criterion->measure_name.english); }},
    {{"unit", {"Unit", "الوحدة"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.criterion->unit); }},
    {{"mornings", {"Of mornings too", "للصباح أيضا"}, "", ValueType::flag},
     [](const Row& row) -> Value { return row.criterion->of_mornings; }},
    {{"longitude", {"Longitude", "خط الطول"}, "deg", ValueType::number},
     [](const Row& row) -> Value { return number_of(row.criterion->place, &JudgedPlace::longitude); }},
    {{"latitude", {"Latitude", "خط العرض"}, "deg", ValueType::number},
     [](const Row& row) -> Value { return number_of(row.criterion->place, &JudgedPlace::latitude); }},
    {{"class", {"Class", "الصنف"}, "", ValueType::whole},
     [](const Row& row) -> Value { return static_cast<int>(row.visibility); }},
    {{"border", {"Border", "الحد"}, "", ValueType::number},
     [](const Row& row) -> Value { return row.visibility > 0 ? Value(row.band().border) : Value(); }},
    {{"holds_border", {"Holds its border", "الحد منه"}, "", ValueType::flag},
     [](const Row& row) -> Value { return row.visibility > 0 ? Value(row.band().holds_border) : Value(); }},
    {{"meaning", {"Meaning", "المعنى"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.band().text.english); }},
    {{"meaning_arabic", {"Arabic meaning", "المعنى بالعربية"}, "", ValueType::text},
     [](const Row& row) -> Value { return std::string(row.band().text.arabic); }},
};

class CriteriaRun final : public RunOf<Row> {
public:
    const char* task() const override { return "criteria"; }
    const char* report_name() const override { return ""; }

    RunOutcome each_row(const TakeRow& take, Progress& /*progress*/) const override {
        for (const CataloguedCriterion& criterion : catalogued_criteria())
            for (std::size_t i = criterion.bands().size(); i-- > 0;)
                take({&criterion, i});
        return RunOutcome::done;
    }

    std::span<const ColumnOf<Row>> columns() const override { return row_columns; }
    Facts facts() const override { return {}; }

private:
    void write_head(Report& /*report*/) const override {}

    void write_row(Report& report, const Row& row, int /*number*/) const override {
        constexpr int border_column = 5;
        constexpr int meaning_column = 22;
        const CataloguedCriterion& criterion = *row.criterion;
        if (row.is_highest()) {
            report.text(criterion.key).text(": ").line(criterion.name.english);
            report.spc(2).line(criterion.source);
            report.spc(2).text("at ").text(moment_text(criterion)).text("; ").line(criterion.frame.english);
            report.spc(2).line(criterion.measure_name.english);
        }
        report.tab(border_column).text(border_text(row)).tab(meaning_column).line(row.band().text.english);
    }

    void write_closing(Report& /*report*/, RunOutcome /*outcome*/, int /*rows*/) const override {}
};

} // namespace

std::string border_text(const CatalogueRow& row) {
    if (row.visibility == 0)
        return "below";
    const std::string unit = row.criterion->unit;
    return (row.band().holds_border ? "from " : "above ") + plain_number(row.band().border) +
           (unit.empty() ? "" : " " + unit);
}

const char* moment_text(const CataloguedCriterion& criterion) {
    if (criterion.moment == ObservationMoment::best_time)
        return "Best Time";
    return criterion.of_mornings ? "sunset or sunrise" : "sunset";
}

RunPointer criteria_run() {
    return std::make_shared<CriteriaRun>();
}

} // namespace halvane
