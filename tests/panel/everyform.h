// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/frmmap.h"
#include "desktop/frmmain.h"
#include "desktop/panels.h"
#include "finemap/frmfinemap.h"
#include "panel/panelsupport.h"
#include "qibla/frmqmap.h"
#include "watch/frmwatch.h"

#include <memory>
#include <string>
#include <vector>

namespace halvane {

/// Every form of the program by its name: those that the main panel opens are found in its list.
inline std::vector<std::string> form_names() {
    std::vector<std::string> names{"frmmain", "frmmap", "frmqmap", "frmwatch", "frmfinemap"};
    for (const Panel& panel : panels())
        names.emplace_back(panel.form);
    return names;
}

/// A form of that name; none for another name.
inline std::unique_ptr<QWidget> make_form(const std::string& name) {
    if (name == "frmmain") {
        auto form = std::make_unique<frmmain>(panels());
        form->load();
        return form;
    }
    if (name == "frmmap")
        return std::make_unique<frmmap>(nullptr);
    if (name == "frmqmap")
        return std::make_unique<frmqmap>(nullptr);
    if (name == "frmwatch")
        return std::make_unique<frmwatch>(nullptr);
    if (name == "frmfinemap")
        return std::make_unique<frmfinemap>(nullptr);
    for (const Panel& panel : panels())
        if (name == panel.form)
            return std::unique_ptr<QWidget>(panel.make(nullptr));
    return nullptr;
}

} // namespace halvane
