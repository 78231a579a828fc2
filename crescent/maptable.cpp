// SPDX-License-Identifier: MIT
#include "crescent/maptable.h"

#include "calendar/civildate.h"
#include "crescent/maptexts.h"

#include <memory>
#include <string>
#include <utility>

namespace halvane {
namespace {

constexpr ColumnOf<MapPoint> point_columns[] = {
    {{"longitude", {"Longitude", "خط الطول"}, "deg", ValueType::whole},
     [](const MapPoint& point) -> Value { return point.longitude; }},
    {{"latitude", {"Latitude", "خط العرض"}, "deg", ValueType::whole},
     [](const MapPoint& point) -> Value { return point.latitude; }},
    {{"class", {"Class", "الفئة"}, "", ValueType::whole},
     [](const MapPoint& point) -> Value { return static_cast<int>(point.visibility); }},
    {{"evaluated", {"Evaluated", "محسوبة"}, "", ValueType::flag},
     [](const MapPoint& point) -> Value { return point.evaluated; }},
};

class MapTable final : public RunOf<MapPoint> {
public:
    MapTable(const MapRun& map, std::vector<MapPoint> points) : map_(map), points_(std::move(points)) {}

    const char* task() const override { return "map"; }
    const char* report_name() const override { return ""; }

    RunOutcome each_row(const TakeRow& take, Progress& /*progress*/) const override {
        for (const MapPoint& point : points_)
            take(point);
        return RunOutcome::done;
    }

    std::span<const ColumnOf<MapPoint>> columns() const override { return point_columns; }

    Facts facts() const override {
        Facts facts;
        add_fact(facts, "criterion", std::string(row_of(map_.criterion).key));
        add_fact(facts, "new_crescent", map_.kind == CrescentKind::new_crescent);
        add_fact(facts, "date", civil_date(map_.day));
        add_fact(facts, "conjunction", MomentValue{map_.conjunction.universal});
        add_fact(facts, "delta_t", map_.conjunction.delta_t * 86400);
        return facts;
    }

private:
    void write_head(Report& report) const override {
        for (const std::string& line : map_information(map_, Language::english))
            report.line("# " + line);
        report.line("longitude,latitude,class");
    }
    void write_row(Report& report, const MapPoint& point, int /*number*/) const override {
        report.line(std::to_string(point.longitude) + "," + std::to_string(point.latitude) + "," +
                    std::to_string(static_cast<int>(point.visibility)));
    }
    void write_closing(Report& /*report*/, RunOutcome /*outcome*/, int /*rows*/) const override {}

    MapRun map_;
    std::vector<MapPoint> points_;
};

} // namespace

RunPointer map_table(const MapRun& map, std::vector<MapPoint> points) {
    return std::make_shared<MapTable>(map, std::move(points));
}

} // namespace halvane
