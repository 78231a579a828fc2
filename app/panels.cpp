#include "app/panels.h"

#include <vector>

namespace halvane {

std::span<const Panel> panels() {
    static const std::vector<Panel> all;
    return all;
}

} // namespace halvane
