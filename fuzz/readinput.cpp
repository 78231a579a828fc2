#include "fuzz/readinput.h"

#include "app/stored/failure.h"
#include "app/stored/programfolder.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace halvane::fuzz {
namespace {

/// In memory where the system has such a place: a save flushes to disk.
std::string make_folder() {
    namespace fs = std::filesystem;
    const fs::path base = fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    const fs::path folder = base / ("halvane_fuzz." + std::to_string(::getpid()));
    fs::create_directory(folder);
    return folder.string();
}

void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

void read_input(const char* name, const std::uint8_t* data, std::size_t size,
                const std::function<void()>& read) {
    static const std::string folder = make_folder();
    static const int removal = std::atexit([] { std::filesystem::remove_all(folder); });
    require(removal == 0);
    std::FILE* file = std::fopen((folder + "/" + name).c_str(), "wb");
    require(file != nullptr && (size == 0 || std::fwrite(data, 1, size, file) == size));
    require(std::fclose(file) == 0);
    set_program_folder(folder); // every reader drops the copy it keeps
    try {
        read();
    } catch (const RunTimeFailure& failure) {
        const std::string words = failure.what();
        require(words.find(name) != std::string::npos && words.find('\n') == std::string::npos);
    }
}

} // namespace halvane::fuzz
