// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "fuzz/require.h"
#include "hijri/keptrule.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Whatever stands in the file of the kept rule: what is read of it reads the same from its own text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halvane;
    try {
        const HijriChoice choice = hijri_choice_of_text(std::string(data, data + size), "x.ini");
        fuzz::require(choice.rule.empty() || hijri_rule(choice.rule) != nullptr);
        fuzz::require(catalogued_criterion(choice.criterion) != nullptr);
        const std::string text = text_of(choice);
        fuzz::require(text_of(hijri_choice_of_text(text, "x.ini")) == text);
    } catch (const RunTimeFailure&) {
        return 0; // told in words
    }
    return 0;
}
