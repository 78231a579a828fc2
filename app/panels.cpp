#include "app/panels.h"

#include "qibla/frmqib.h"

#include <vector>

namespace halvane {

std::span<const Panel> panels() {
    static const std::vector<Panel> all{
        {"frmqib", "cmdqib", false, make_panel<frmqib>},
    };
    return all;
}

} // namespace halvane
