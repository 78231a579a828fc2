// SPDX-License-Identifier: MIT
#include "system/commandline.h"

#include "system/windows/widepath.h"

#include <windows.h>

#include <shellapi.h>

namespace halvane {

// The words that `main` gets have lost the letters that the machine's code page lacks.
CommandLine::CommandLine(int count, char** words) {
    int wide_count = 0;
    if (wchar_t** wide_words = ::CommandLineToArgvW(::GetCommandLineW(), &wide_count)) {
        for (int i = 0; i < wide_count; ++i)
            texts_.push_back(narrow(wide_words[i]));
        ::LocalFree(wide_words);
    } else {
        texts_.assign(words, words + count);
    }
    for (std::string& text : texts_)
        words_.push_back(text.data());
    words_.push_back(nullptr);
}

} // namespace halvane
