// SPDX-License-Identifier: MIT
#include "system/windows/quotedword.h"

namespace halvane {

std::wstring quoted_word(std::wstring_view word) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0; // just before: doubled where a quote follows them
    for (const wchar_t c : word) {
        if (c == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    text.append(backslashes, L'\\');
    return text + L'"';
}

} // namespace halvane
