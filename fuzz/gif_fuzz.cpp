// SPDX-License-Identifier: MIT
#include "crescent/gif.h"
#include "fuzz/require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include <gif_lib.h>

namespace {

using halvane::fuzz::require;

struct Input {
    const std::uint8_t* data;
    std::size_t size;

    std::uint8_t next() { return size == 0 ? std::uint8_t{0} : (--size, *data++); }
};

struct MemoryFile {
    const std::vector<std::uint8_t>* bytes;
    std::size_t position;
};

int read_memory(GifFileType* gif, GifByteType* target, int size) {
    auto* memory = static_cast<MemoryFile*>(gif->UserData);
    const std::size_t count =
        std::min(static_cast<std::size_t>(size), memory->bytes->size() - memory->position);
    std::copy_n(memory->bytes->begin() + static_cast<std::ptrdiff_t>(memory->position), count, target);
    memory->position += count;
    return static_cast<int>(count);
}

halvane::GifPicture picture_from(Input input) {
    halvane::GifPicture picture;
    picture.width = input.next() + 256 * (input.next() % 4);
    picture.height = input.next();
    const bool is_indexed = (input.next() & 1) != 0;
    const std::size_t area =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    for (int entry = input.next(); is_indexed && entry > 0; --entry) {
        picture.palette.push_back({input.next(), input.next(), input.next()});
    }
    const Input content = input;
    for (std::size_t pixel = 0; pixel < area; ++pixel) {
        if (input.size == 0) {
            input = content; // a short input fills the picture again and again
        }
        if (is_indexed) {
            picture.indices.push_back(input.next());
        } else {
            picture.pixels.push_back({input.next(), input.next(), input.next()});
        }
    }
    return picture;
}

} // namespace

/// Whatever the size and content, the file decodes to the indices that went in.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const halvane::GifPicture picture = picture_from({data, size});
    const std::vector<std::uint8_t> file = halvane::gif_bytes(picture, halvane::RgbColour{});
    if (picture.width == 0 || picture.height == 0) {
        require(file.empty());
        return 0;
    }
    MemoryFile memory{&file, 0};
    int error = 0;
    GifFileType* gif = DGifOpen(&memory, read_memory, &error);
    require(gif != nullptr && DGifSlurp(gif) == GIF_OK && gif->ImageCount == 1);
    require(gif->SWidth == picture.width && gif->SHeight == picture.height);
    require(memory.position == file.size());
    const std::size_t area = picture.indices.size();
    require(std::equal(picture.indices.begin(), picture.indices.end(), gif->SavedImages[0].RasterBits,
                       gif->SavedImages[0].RasterBits + area));
    DGifCloseFile(gif, &error);
    return 0;
}
