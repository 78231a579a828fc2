// SPDX-License-Identifier: MIT
#include "batch/tasks.h"

#include "base/machineclock.h"
#include "calendar/modjul.h"
#include "calendar/yearlimits.h"
#include "prayer/moonrun.h"
#include "prayer/prayerrun.h"
#include "qibla/qiblahrun.h"
#include "routines/series.h"
#include "stored/date.h"
#include "stored/programfolder.h"
#include "tables/ephemeristable.h"
#include "telescope/crescentpicture.h"
#include "telescope/readouts.h"

#include <iostream>

namespace halvane {
namespace {

int run_prayer(Progress& progress) {
    if (const auto refused = refused_stored_period(read_date()))
        return report_refused(*refused);
    load_term();
    load_mterm();
    return report_written(write_prayer_report(loaded_theory(), progress), "results.out",
                          high_latitude_message.text.english);
}

int run_moon(Progress& progress) {
    if (const auto refused = refused_stored_period(read_date()))
        return report_refused(*refused);
    load_mterm();
    load_elp();
    return report_written(write_moon_report(loaded_theory(), progress), "mresults.out");
}

int run_today(Progress& /*progress*/) {
    load_term();
    load_mterm();
    const MachineTime now = machine_time();
    double todayjd = 0;
    modjul(now.year, now.month, now.day, 0, todayjd);
    const PrayerTexts times = today_prayer_times(loaded_theory(), todayjd);
    std::cout << "Fajer " << times.fajer << "\nShuroq " << times.shuroq << "\nDhohur " << times.dhohur
              << "\nAser " << times.aser << "\nMaghreb " << times.maghreb << "\nIsha " << times.isha << "\n";
    return status_done;
}

int run_qibla(Progress& progress, QiblahMark mark) {
    if (const auto refused = refused_stored_period(read_date()))
        return report_refused(*refused);
    load_term();
    load_mterm();
    return report_written(write_qiblah_report(loaded_theory(), progress, stored_qiblah_direction(), mark),
                          "results.out");
}

int run_ephemeris(Progress& progress) {
    load_termfull();
    load_mterm();
    load_elp();
    const EphemerisSettings settings = read_coor();
    if (const auto refused = refused_table(settings))
        return report_refused(refused->told);
    return report_written(write_ephemeris_report(loaded_theory(), settings, progress), "ephemeris.out",
                          end_before_start.text.english);
}

int run_telescope(Progress& /*progress*/) {
    load_term();
    load_mterm();
    load_elp();
    const TelescopeSettings settings = read_tele();
    if (const auto refused = refused_year(settings.year, theory_years))
        return report_refused(*refused);
    const std::optional<TelescopePointing> pointing = telescope_pointing(loaded_theory(), settings);
    if (!pointing) {
        std::cerr << moon_below_horizon.text.english << "\n";
        return status_failure;
    }
    for (const ReadOut& readout : telescope_readouts(*pointing))
        std::cout << readout.label << ": " << readout.text << "\n";
    std::cout << "picture: "
              << crescent_picture(pointing->zenith_angle, settings.flip_horizontal == 1,
                                  settings.flip_vertical == 1)
              << "\n";
    return status_done;
}

} // namespace

int report_refused(const Refusal& refused) {
    std::cerr << refused.text.english << "\n";
    return status_failure;
}

int report_written(RunOutcome outcome, const char* report_name, const char* refusal) {
    if (outcome == RunOutcome::refused) {
        std::cerr << refusal << "\n";
        return status_failure;
    }
    std::cout << program_path(report_name) << "\n";
    if (outcome == RunOutcome::cancelled)
        std::cerr << "Cancelled: the report holds the rows so far.\n";
    return outcome == RunOutcome::done ? status_done : status_failure;
}

std::vector<Task> batch_tasks() {
    return {
        {"prayer", "Prayer times of the stored period, into results.out", {}, run_prayer},
        {"moon", "Moon times of the stored period, into mresults.out", {}, run_moon},
        {"today", "Today's six prayer times, on standard output", {}, run_today},
        phases_task(),
        crescent_task(),
        map_task(),
        {"qibla-sun",
         "When the Sun stands in the direction of the Qiblah, into results.out",
         {},
         [](Progress& progress) { return run_qibla(progress, QiblahMark::sun); }},
        {"qibla-shadow",
         "When the Sun's shadow lies in the direction of the Qiblah, into results.out",
         {},
         [](Progress& progress) { return run_qibla(progress, QiblahMark::shadow); }},
        {"ephemeris", "Table of the Sun or the Moon, into ephemeris.out", {}, run_ephemeris},
        {"telescope", "Pointing numbers of Sun, Moon and crescent, on standard output", {}, run_telescope},
    };
}

} // namespace halvane
