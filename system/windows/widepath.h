// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// A text of the system, which is in UTF-16, and back. Bytes that are not UTF-8 become the sign for such.
std::wstring wide(std::string_view utf8);
std::string narrow(std::wstring_view utf16);

} // namespace halvane
