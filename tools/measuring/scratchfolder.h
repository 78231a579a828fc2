#pragma once

#include <string>

namespace halvane {

/// A program folder of its own under the system's temporary folder, with the delivered stored and series
/// files in it. It becomes the program folder, and is removed at the end.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
    std::string folder_before_;
};

/// Makes the stored calculation date a whole year.
void store_year(int year);

} // namespace halvane
