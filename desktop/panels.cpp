// SPDX-License-Identifier: MIT
#include "desktop/panels.h"

#include "crescent/frmcresv.h"
#include "desktop/frmdate.h"
#include "desktop/frmlocation.h"
#include "desktop/frmpreferences.h"
#include "hijri/frmhej.h"
#include "phases/frmphase.h"
#include "prayer/frmalerts.h"
#include "qibla/frmqib.h"
#include "tables/frmcoor.h"
#include "telescope/frmtele.h"
#include "timetable/frmtimetable.h"
#include "watch/frmwatch.h"

#include <optional>
#include <vector>

namespace halvane {

namespace {

/// Shows the watch sheet over the crescent panel, which closes it with itself; one that is open is used
/// again.
void open_watch_sheet(frmcresv& crescent, CrescentKind kind, const std::optional<DateNumbers>& date) {
    auto* watch = crescent.findChild<frmwatch*>();
    if (watch == nullptr) {
        watch = new frmwatch(&crescent);
        watch->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(&crescent, &QDialog::finished, watch, &QWidget::close);
    }
    watch->choose(kind, date);
    watch->show();
    watch->raise();
    watch->activateWindow();
}

QDialog* make_crescent_panel(QWidget* owner) {
    auto* const crescent = new frmcresv(owner);
    QObject::connect(crescent, &frmcresv::watch_wanted, crescent,
                     [crescent](CrescentKind kind, const std::optional<DateNumbers>& date) {
                         open_watch_sheet(*crescent, kind, date);
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
        {"frmtimetable", "cmdtable", false, make_panel<frmtimetable>},
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
