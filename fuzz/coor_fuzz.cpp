#include "app/stored/coor.h"
#include "fuzz/readinput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("coor.vsk", data, size, halvane::read_coor, halvane::write_coor);
    return 0;
}
