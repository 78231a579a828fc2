// SPDX-License-Identifier: MIT
#include "stored/textfile.h"

#include "base/failure.h"
#include "stored/outputfile.h"
#include "stored/windows1256.h"
#include "system/regularfile.h"

#include <array>
#include <cerrno>
#include <utility>

namespace halvane {
namespace {

TwinWords words_of(FileKind kind) {
    switch (kind) {
    case FileKind::folder:
        return {"a folder", "مجلد"};
    case FileKind::pipe:
        return {"a named pipe", "أنبوب"};
    case FileKind::socket:
        return {"a socket", "مقبس"};
    default:
        return {"a device", "جهاز"};
    }
}

TwinWords at_most(std::size_t size) {
    const std::string megabytes = std::to_string(size / mebibyte);
    return {"a file of at most " + megabytes + " MB", "ملف لا يزيد على " + megabytes + " ميغابايت"};
}

} // namespace

Descriptor open_regular_file(const std::string& path) {
    RegularFile opened = open_regular(path);
    if (opened.kind != FileKind::regular)
        throw damaged_file(path, {"a file", "ملف"}, words_of(opened.kind));
    if (!opened.file.is_open())
        throw file_failure(FileAction::open, path, errno);
    return std::move(opened.file);
}

std::string read_file(const std::string& path) {
    const Descriptor file = open_regular_file(path);
    const auto require_allowed = [&path](std::size_t size) {
        if (size > largest_stored_file)
            throw damaged_file(path, at_most(largest_stored_file), {"a larger one", "ملف أكبر"});
    };
    require_allowed(file.size());
    std::string bytes;
    bytes.reserve(file.size() + 1);
    std::array<char, 65536> block{};
    std::ptrdiff_t count = 0;
    while ((count = read_some(file.number(), block.data(), block.size())) > 0) {
        bytes.append(block.data(), static_cast<std::size_t>(count));
        require_allowed(bytes.size()); // it may grow, or not know its size
    }
    if (count < 0)
        throw file_failure(FileAction::read, path, errno);
    return bytes;
}

std::string read_text_file(const std::string& path) {
    std::string bytes = read_file(path);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.erase(0, 3);
    return is_utf8(bytes) ? bytes : utf8_of_windows1256(bytes);
}

void save_text_file(const std::string& path, std::string_view content) {
    OutputFile file(path, FileRights::as_before);
    file.write(content);
    file.commit();
}

} // namespace halvane
