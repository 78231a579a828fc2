// SPDX-License-Identifier: MIT
#include "base/pagewords.h"

namespace halvane {

TwinWords words_of_page(int number, int pages) {
    const std::string page = std::to_string(number);
    const std::string count = std::to_string(pages);
    return {"Page " + page + " of " + count, "صفحة " + page + " من " + count};
}

} // namespace halvane
