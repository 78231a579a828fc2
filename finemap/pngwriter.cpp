// SPDX-License-Identifier: MIT
#include "finemap/pngwriter.h"

#include "base/failure.h"

#include <algorithm>
#include <string>
#include <utility>

#include <zlib.h>

namespace halvane {
namespace {

constexpr std::size_t bytes_of_pixel = 3;
constexpr std::uint8_t filter_up = 2; ///< a row is written as its difference from the row above
constexpr std::size_t block_size = std::size_t{256} * 1024;
/// Pictures of more bytes are compressed by the fast level.
constexpr std::size_t large_picture = std::size_t{64} * 1024 * 1024;

std::string big_endian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>((number >> static_cast<unsigned>(shift)) & 0xFFU);
    return bytes;
}

std::uint32_t check_of(std::string_view type, std::string_view data) {
    uLong check = crc32(0, nullptr, 0);
    for (const std::string_view part : {type, data})
        check = part.empty() ? check
                             : crc32(check, reinterpret_cast<const Bytef*>(part.data()),
                                     static_cast<uInt>(part.size()));
    return static_cast<std::uint32_t>(check);
}

} // namespace

struct PngWriter::Compressor {
    explicit Compressor(int level) : block(block_size) {
        if (deflateInit(&stream, level) != Z_OK)
            throw RunTimeFailure(TwinWords{"There is no memory for the picture.", "لا ذاكرة للصورة."},
                                 FailureKind::no_memory);
    }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;
    ~Compressor() { deflateEnd(&stream); }

    z_stream stream{};
    std::vector<char> block;
};

PngWriter::PngWriter(std::uint32_t width, std::uint32_t height, std::uint32_t dots_per_metre, TakeBytes take)
    : take_(std::move(take)), above_(width * bytes_of_pixel), filtered_(width * bytes_of_pixel + 1),
      compressor_(std::make_unique<Compressor>(above_.size() * height > large_picture ? Z_BEST_SPEED
                                                                                      : Z_BEST_COMPRESSION)) {
    constexpr std::string_view signature("\x89PNG\r\n\x1A\n", 8);
    constexpr std::string_view eight_bit_colours("\x08\x02\x00\x00\x00", 5);
    constexpr std::string_view of_metre("\x01", 1);
    take_(signature);
    write_chunk("IHDR", big_endian(width) + big_endian(height) + std::string(eight_bit_colours));
    write_chunk("pHYs", big_endian(dots_per_metre) + big_endian(dots_per_metre) + std::string(of_metre));
}

PngWriter::~PngWriter() = default;

void PngWriter::row(std::span<const std::uint8_t> row) {
    filtered_[0] = filter_up;
    for (std::size_t i = 0; i < row.size(); ++i)
        filtered_[i + 1] = static_cast<std::uint8_t>(row[i] - above_[i]);
    std::copy(row.begin(), row.end(), above_.begin());
    compressor_->stream.next_in = filtered_.data();
    compressor_->stream.avail_in = static_cast<uInt>(filtered_.size());
    compress(false);
}

void PngWriter::finish() {
    compress(true);
    write_chunk("IEND", {});
}

void PngWriter::compress(bool is_end) {
    z_stream& stream = compressor_->stream;
    std::vector<char>& block = compressor_->block;
    int outcome = Z_OK;
    do {
        if (stream.next_out == nullptr) {
            stream.next_out = reinterpret_cast<Bytef*>(block.data());
            stream.avail_out = static_cast<uInt>(block.size());
        }
        outcome = deflate(&stream, is_end ? Z_FINISH : Z_NO_FLUSH);
        if (stream.avail_out == 0 || (is_end && outcome == Z_STREAM_END)) {
            write_chunk("IDAT", {block.data(), block.size() - stream.avail_out});
            stream.next_out = nullptr;
        }
    } while (is_end ? outcome != Z_STREAM_END : stream.avail_in > 0);
}

void PngWriter::write_chunk(std::string_view type, std::string_view data) const {
    take_(big_endian(static_cast<std::uint32_t>(data.size())));
    take_(type);
    take_(data);
    take_(big_endian(check_of(type, data)));
}

} // namespace halvane
