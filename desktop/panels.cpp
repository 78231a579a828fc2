// SPDX-License-Identifier: MIT
#include "desktop/panels.h"

#include "crescent/frmcresv.h"
#include "desktop/frmdate.h"
#include "desktop/frmlocation.h"
#include "desktop/frmpreferences.h"
#include "desktop/settingscheck.h"
#include "finemap/frmfinemap.h"
#include "hijri/frmhej.h"
#include "hijri/frmmonths.h"
#include "hijri/keptrule.h"
#include "panel/messages.h"
#include "phases/frmphase.h"
#include "prayer/frmalerts.h"
#include "qibla/frmqib.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/loc.h"
#include "tables/frmcoor.h"
#include "telescope/frmtele.h"
#include "timetable/frmtimetable.h"
#include "watch/frmwatch.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace halvane {

namespace {

/// The window of a kind over the crescent panel, which closes it with itself; one that is open is used again.
/// In     prepare  is given a new one
template <class Form, class Prepare>
Form& window_over(frmcresv& crescent, const Prepare& prepare) {
    auto* window = crescent.findChild<Form*>();
    if (window == nullptr) {
        window = new Form(&crescent);
        window->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(&crescent, &QDialog::finished, window, &QWidget::close);
        prepare(*window);
    }
    return *window;
}

void bring_forward(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

void open_watch_sheet(frmcresv& crescent, CrescentKind kind, const std::optional<DateNumbers>& date) {
    auto& watch = window_over<frmwatch>(crescent, [](frmwatch&) {});
    watch.choose(kind, date);
    bring_forward(watch);
}

/// Stores a location when today's times can be calculated there; else tells why not.
void observe_from(QWidget& asker, const Location& location) {
    constexpr TwinText no_times{"Today's prayer times cannot be calculated there, so it is not stored.",
                                "لا يمكن حساب أوقات الصلاة لهذا اليوم هناك، لذلك لم يحفظ."};
    if (refused_value(location)) {
        warn(&asker, asker.windowTitle(), text_of(no_times, language_of(asker)), language_of(asker));
        return;
    }
    write_loc(location);
    reload_main_panel();
}

void open_fine_map(frmcresv& crescent, CrescentKind kind, double conjunction, int day,
                   const std::string& criterion) {
    auto& map = window_over<frmfinemap>(crescent, [](frmfinemap& made) {
        QObject::connect(&made, &frmfinemap::place_wanted, &made,
                         [&made](const Location& place) { observe_from(made, place); });
    });
    map.choose(kind, conjunction, day, criterion);
    bring_forward(map);
}

QDialog* make_timetable_panel(QWidget* owner) {
    return new frmtimetable(owner, [kept = std::make_shared<KeptReckoning>()] {
        return kept->now(loaded_theory(), machine_time().year);
    });
}

QDialog* make_crescent_panel(QWidget* owner) {
    auto* const crescent = new frmcresv(owner);
    QObject::connect(crescent, &frmcresv::watch_wanted, crescent,
                     [crescent](CrescentKind kind, const std::optional<DateNumbers>& date) {
                         open_watch_sheet(*crescent, kind, date);
                     });
    QObject::connect(
        crescent, &frmcresv::fine_map_wanted, crescent,
        [crescent](CrescentKind kind, double conjunction, int day, const std::string& criterion) {
            open_fine_map(*crescent, kind, conjunction, day, criterion);
        });
    return crescent;
}

} // namespace

std::span<const Panel> panels() {
    static const std::vector<Panel> all{
        {"frmlocation", "cmdloc", true, make_panel<frmlocation>},
        {"frmdate", "cmddat", true, make_panel<frmdate>},
        {"frmpreferences", "cmdpre", true, make_panel<frmpreferences>},
        {"frmhej", "cmdcon", true, make_panel<frmhej>},
        {"frmmonths", "cmdmonths", false, make_panel<frmmonths>},
        {"frmtimetable", "cmdtable", false, make_timetable_panel},
        {"frmphase", "cmdpha", false, make_panel<frmphase>},
        {"frmqib", "cmdqib", false, make_panel<frmqib>},
        {"frmcoor", "cmdcoor", false, make_panel<frmcoor>},
        {"frmtele", "cmdtele", true, make_panel<frmtele>},
        {"frmcresv", "cmdcresv", true, make_crescent_panel},
        {"frmalerts", "cmdale", true, make_panel<frmalerts>},
    };
    return all;
}

} // namespace halvane
