// SPDX-License-Identifier: MIT
#include "hijri/monthpaper.h"

#include "hijri/monthpainter.h"

#include <memory>

namespace halvane {

std::string pdf_of(const MonthSheet& sheet, const MonthPage& page) {
    return pdf_of(painted_pages(std::make_shared<const MonthSheet>(sheet), page),
                  document_title(sheet, page.language));
}

} // namespace halvane
