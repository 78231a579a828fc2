#include "tools/measuring/scratchfolder.h"

#include "stored/date.h"
#include "stored/programfolder.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace halvane {

ScratchFolder::ScratchFolder() : folder_before_(program_folder()) {
    namespace fs = std::filesystem;
    path_ = (fs::temp_directory_path() / "halvane.XXXXXX").string();
    if (::mkdtemp(path_.data()) == nullptr)
        throw std::runtime_error("Cannot make a folder at " + path_ + ".");
    for (const fs::directory_entry& entry : fs::directory_iterator(HALVANE_DATA))
        if (const fs::path kind = entry.path().extension(); kind == ".vsk" || kind == ".txt")
            fs::copy(entry.path(), path_);
    set_program_folder(path_);
}

ScratchFolder::~ScratchFolder() {
    set_program_folder(folder_before_);
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void store_year(int year) {
    CalculationDate date = read_date();
    date.one_day = false;
    date.period = true;
    date.system_date = false;
    date.start = date.from = {static_cast<double>(year), 1, 1};
    date.end = date.to = {static_cast<double>(year), 12, 31};
    write_date(date);
}

} // namespace halvane
