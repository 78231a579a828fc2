// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// True when `bytes` is well-formed UTF-8.
bool is_utf8(std::string_view bytes);

/// The text of `bytes` in the Windows-1256 (Arabic) code page, as UTF-8.
std::string utf8_of_windows1256(std::string_view bytes);

} // namespace halvane
