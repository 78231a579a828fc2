#include "app/panels.h"

#include "tables/frmcoor.h"
#include "telescope/frmtele.h"

#include <vector>

namespace halvane {

std::span<const Panel> panels() {
    static const std::vector<Panel> all{
        {"frmcoor", "cmdcoor", false, make_panel<frmcoor>},
        {"frmtele", "cmdtele", true, make_panel<frmtele>},
    };
    return all;
}

} // namespace halvane
