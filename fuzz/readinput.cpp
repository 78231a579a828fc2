// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"

#include "base/failure.h"
#include "fuzz/require.h"
#include "stored/programfolder.h"
#include "tests/support/programfolder.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace halvane::fuzz {
namespace {

/// In memory where the system has such a place: a save flushes to disk.
std::filesystem::path fast_base() {
    namespace fs = std::filesystem;
    return fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
}

/// The folder of this process, which becomes the program folder: every reader drops the copy it keeps.
const TemporaryFolder& use_folder() {
    static const TemporaryFolder folder(fast_base());
    set_program_folder(folder.path().string());
    return folder;
}

/// Runs `work` and returns the words of its failure; none when it ends by itself.
std::string words_of_failure(const std::function<void()>& work) {
    try {
        work();
    } catch (const RunTimeFailure& failure) {
        std::string words = failure.what();
        require(!words.empty() && words.find('\n') == std::string::npos);
        return words;
    }
    return {};
}

} // namespace

void read_input(const char* name, const std::uint8_t* data, std::size_t size,
                const std::function<void()>& read) {
    std::FILE* file = std::fopen((use_folder() / name).c_str(), "wb");
    require(file != nullptr && (size == 0 || std::fwrite(data, 1, size, file) == size));
    require(std::fclose(file) == 0);
    use_folder();
    const std::string words = words_of_failure(read);
    require(words.empty() || words.find(name) != std::string::npos);
}

void in_folder(const std::function<void()>& work) {
    use_folder();
    words_of_failure(work);
}

} // namespace halvane::fuzz
