// SPDX-License-Identifier: MIT
#include "telescope/telescoperun.h"

#include "report/reportrun.h"
#include "telescope/crescentpicture.h"
#include "telescope/pointing.h"
#include "telescope/readouts.h"

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace halvane {
namespace {

/// Where one of the three stands.
struct SkyRow {
    PointedBody body;
    SkyPlace place;
    double zenith_angle = 0; ///< of the crescent; of no other                                   [deg]
};

constexpr std::array<const char*, 3> keys{"sun", "moon", "crescent"};

constexpr Column number_column(const char* key, const char* english, const char* arabic) {
    return {key, {english, arabic}, "deg", ValueType::number};
}

constexpr ColumnOf<SkyRow> sky_columns[] = {
    {{"body", {"Body", "الجرم"}, "", ValueType::text},
     [](const SkyRow& row) -> Value { return std::string(keys.at(static_cast<std::size_t>(row.body))); }},
    {number_column("right_ascension", "R. A.", "المطلع المستقيم"),
     [](const SkyRow& row) -> Value { return row.place.right_ascension; }},
    {number_column("declination", "Dec.", "الميل"),
     [](const SkyRow& row) -> Value { return row.place.declination; }},
    {number_column("altitude", "Altitude", "الارتفاع"),
     [](const SkyRow& row) -> Value { return row.place.altitude; }},
    {number_column("azimuth", "Azimuth", "السمت"),
     [](const SkyRow& row) -> Value { return row.place.azimuth; }},
    {number_column("zenith_angle", "Angle from the zenith", "الزاوية من السمت"),
     [](const SkyRow& row) { return row.body == PointedBody::crescent ? Value(row.zenith_angle) : Value(); }},
};

class TelescopeRun final : public RunOf<SkyRow> {
public:
    TelescopeRun(TheoryPointer theory, const TelescopeSettings& settings, Preferences preferences,
                 Location location)
        : theory_(std::move(theory)), settings_(settings), preferences_(std::move(preferences)),
          location_(std::move(location)) {}

    const char* task() const override { return "telescope"; }
    const char* report_name() const override { return ""; }

    RunOutcome each_row(const TakeRow& take, Progress& /*progress*/) const override {
        const auto pointing = telescope_pointing(theory_, settings_, preferences_, location_);
        if (!pointing)
            return RunOutcome::refused;
        take({PointedBody::sun, pointing->sun});
        take({PointedBody::moon, pointing->moon});
        take({PointedBody::crescent, pointing->crescent, pointing->zenith_angle});
        return RunOutcome::done;
    }

    std::span<const ColumnOf<SkyRow>> columns() const override { return sky_columns; }

    Facts facts() const override {
        Facts facts;
        add_place(facts, location_);
        add_fact(facts, "date", DateNumbers{settings_.year, settings_.month, settings_.day});
        add_fact(facts, "clock", ClockValue{settings_.hour + settings_.minute / 60});
        add_fact(facts, "airless", settings_.airless);
        add_fact(facts, "j2000", settings_.j2000);
        return facts;
    }

private:
    void write_head(Report& /*report*/) const override {}
    void write_row(Report& report, const SkyRow& row, int /*number*/) const override {
        for (const ReadOut& readout : readouts_of(row.body, row.place))
            report.line(std::string(readout.label) + ": " + readout.text);
        if (row.body == PointedBody::crescent)
            report.line("picture: " + crescent_picture(row.zenith_angle, settings_.flip_horizontal == 1,
                                                       settings_.flip_vertical == 1));
    }
    void write_closing(Report& /*report*/, RunOutcome /*outcome*/, int /*rows*/) const override {}

    TheoryPointer theory_;
    TelescopeSettings settings_;
    Preferences preferences_;
    Location location_;
};

} // namespace

RunPointer telescope_run(const TheoryPointer& theory, const TelescopeSettings& settings) {
    return std::make_shared<TelescopeRun>(theory, settings, read_pref(), read_loc());
}

} // namespace halvane
