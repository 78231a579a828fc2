#include "app/panels.h"

#include "crescent/frmcresv.h"
#include "phases/frmphase.h"

#include <vector>

namespace halvane {

std::span<const Panel> panels() {
    static const std::vector<Panel> all{
        {"frmphase", "cmdpha", false, make_panel<frmphase>},
        {"frmcresv", "cmdcresv", true, make_panel<frmcresv>},
    };
    return all;
}

} // namespace halvane
