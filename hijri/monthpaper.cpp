// SPDX-License-Identifier: MIT
#include "hijri/monthpaper.h"

#include "hijri/monthpainter.h"

#include <memory>

namespace halvane {

std::string pdf_of(const MonthSheet& sheet, const MonthPage& page) {
    return pdf_of(std::vector<MonthSheet>{sheet}, page);
}

std::string pdf_of(const std::vector<MonthSheet>& sheets, const MonthPage& page) {
    return pdf_of(painted_pages(std::make_shared<const std::vector<MonthSheet>>(sheets), page),
                  document_title(sheets, page.language));
}

} // namespace halvane
