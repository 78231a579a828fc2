// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <zlib.h>

namespace halvane {

/// CRC-32 of ISO 3309, which tells an accidental change.
inline std::uint32_t crc32_of(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        ::crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

} // namespace halvane
