// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "fuzz/require.h"
#include "timetable/profilefile.h"
#include "timetable/profilekeys.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Whatever stands in the file of a profile: what is read of it reads the same from its own text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halvane;
    try {
        const Profile profile = profile_of_text(std::string(data, data + size), "x", "x.ini");
        fuzz::require(profile_of_text(text_of(profile), "x", "x.ini") == profile);
    } catch (const RunTimeFailure&) {
        return 0; // told in words
    }
    return 0;
}
