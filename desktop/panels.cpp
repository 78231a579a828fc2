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

#include <vector>

namespace halvane {

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
        {"frmcresv", "cmdcresv", true, make_panel<frmcresv>},
        {"frmalerts", "cmdale", true, make_panel<frmalerts>},
    };
    return all;
}

} // namespace halvane
