// SPDX-License-Identifier: MIT
#include "stored/outputfile.h"

#include "system/filecalls.h"
#include "system/path.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace halvane {
namespace {

constexpr unsigned rights_of_new = 0666;

} // namespace

bool is_standard_output(std::string_view path) {
    constexpr std::array<std::string_view, 4> names{standard_output, "/dev/stdout", "/dev/fd/1",
                                                    "/proc/self/fd/1"};
    return std::find(names.begin(), names.end(), path) != names.end();
}

RunTimeFailure write_failure(const std::string& path) {
    return file_failure(FileAction::write, is_standard_output(path) ? "standard output" : path, errno);
}

OutputFile::OutputFile(std::string path, FileRights rights) : path_(std::move(path)) {
    if (is_standard_output(path_)) {
        in_place_ = copy_of_standard_output();
        if (!in_place_.is_open())
            throw write_failure(path_);
        return;
    }
    place_ = output_place(path_);
    switch (place_.kind) {
    case OutputPlace::Kind::unknown:
        throw write_failure(path_);
    case OutputPlace::Kind::folder:
        errno = EISDIR;
        throw write_failure(path_);
    case OutputPlace::Kind::file:
        open_beside(rights);
        return;
    case OutputPlace::Kind::in_place:
    case OutputPlace::Kind::socket:
        in_place_ = open_in_place(place_);
        if (!in_place_.is_open())
            throw write_failure(path_);
    }
}

void OutputFile::open_beside(FileRights rights) {
    unsigned wanted = place_.rights.value_or(rights_of_new);
    if (rights == FileRights::of_umask)
        wanted &= rights_of_new;
    beside_ = std::make_unique<UnfinishedFile>(folder_of(place_.path), wanted);
    if (beside_->descriptor() < 0)
        throw write_failure(path_);
    if (place_.rights && rights == FileRights::as_before)
        give_rights(beside_->descriptor(), wanted);
}

void OutputFile::write(std::string_view bytes) {
    const int file = beside_ ? beside_->descriptor() : in_place_.number();
    if (!write_whole(file, bytes))
        throw write_failure(path_);
}

void OutputFile::commit() {
    const bool done = beside_ ? beside_->move_to(place_.path) : in_place_.close();
    if (!done)
        throw write_failure(path_);
}

void save_result(const std::string& path, std::string_view bytes) {
    OutputFile file(path, FileRights::of_umask);
    file.write(bytes);
    file.commit();
}

} // namespace halvane
